#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/ApplicationBundles.h"
#include "platform/OnScreenWindowList.h"
#include "platform/Screens.h"
#include "platform/Signal.h"
#include "platform/Workspace.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

/// Applications that launch, come to the front, hide and quit as they are told.
class SimulatedWorkspace : public Workspace {
public:
    explicit SimulatedWorkspace(Journal& journal) : journal_(journal) {}

    std::vector<RunningApplication> runningApplications() const override { return running_; }
    std::vector<RunningApplication>
    runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const override;
    std::optional<RunningApplication> frontmostApplication() const override { return frontmost_; }
    Subscription addObserver(WorkspaceNotification notification,
                             std::function<void(const RunningApplication&)> handler) override;

    void launch(const RunningApplication& application);
    void launch(const std::string& bundleIdentifier, ActivationPolicy policy = ActivationPolicy::regular);
    /// The application that was in front before comes to the front when one quits or hides.
    void quit(std::string_view bundleIdentifier);
    void hide(std::string_view bundleIdentifier);

    /// Brings an application to the front; launches it if it does not run, unhides it if it was hidden.
    void activate(const std::string& bundleIdentifier);
    void activate(const RunningApplication& application);

    /// Tells that an application is shown again. It need not come to the front with that.
    void unhide(std::string_view bundleIdentifier);

private:
    void activateNext();

    Journal& journal_;
    std::vector<RunningApplication> running_; // the one that was in front last comes last
    std::set<std::string, std::less<>> hidden_;
    std::optional<RunningApplication> frontmost_;
};

/// Applications installed by hand: a path for each bundle identifier, a name and an icon for each path.
class SimulatedApplicationBundles : public ApplicationBundles {
public:
    std::optional<std::string> absolutePathForAppBundle(std::string_view bundleIdentifier) const override {
        const auto found = paths.find(bundleIdentifier);
        return found == paths.end() ? std::nullopt : std::optional(found->second);
    }
    std::string displayNameAtPath(std::string_view path) const override {
        const auto found = names.find(path);
        return found == names.end() ? std::string(path.substr(path.rfind('/') + 1)) : found->second;
    }
    ImageRef iconForFile(std::string_view path) const override {
        const auto found = icons.find(path);
        return found == icons.end() ? nullptr : found->second;
    }

    std::map<std::string, std::string, std::less<>> paths;
    std::map<std::string, std::string, std::less<>> names;
    std::map<std::string, ImageRef, std::less<>> icons;
};

class SimulatedWindowList : public OnScreenWindowList {
public:
    explicit SimulatedWindowList(Journal& journal) : journal_(journal) {}

    std::vector<WindowDescription> windows() const override {
        journal_.add("look");
        return frontToBack;
    }
    Subscription
    addLauncherObserver(std::function<void(const std::optional<OpenLauncher>&)> handler) override {
        journal_.add("observe launchers");
        return launcherChanged_.connect(std::move(handler));
    }

    Subscription addFrontWindowObserver(std::function<void()> handler) override {
        journal_.add("observe front window");
        auto connection = std::make_shared<Subscription>(frontWindowMoved_->connect(std::move(handler)));
        return Subscription([connection, moved = std::weak_ptr(frontWindowMoved_), &journal = journal_] {
            connection->end();
            if (!moved.expired()) journal.add("end front window");
        });
    }

    /// What a desktop does that notices when windows move.
    void tellFrontWindowMoved() { frontWindowMoved_->emit(); }

    /// What a desktop does that notices launchers itself.
    void tellLauncher(const std::optional<OpenLauncher>& open) { launcherChanged_.emit(open); }

    std::vector<WindowDescription> frontToBack;

private:
    Journal& journal_;
    Signal<const std::optional<OpenLauncher>&> launcherChanged_;
    std::shared_ptr<Signal<>> frontWindowMoved_ = std::make_shared<Signal<>>();
};

class SimulatedScreens : public Screens {
public:
    std::optional<Screen> mainScreen() const override { return main; }
    std::optional<Screen> deepestScreen() const override { return deepest; }

    std::optional<Screen> main = Screen{1, {0, 0, 1440, 900}, 24};
    std::optional<Screen> deepest = main;
};

} // namespace quorvane
