#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Alerts.h"
#include "platform/Application.h"
#include "platform/Cursor.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/Links.h"
#include "platform/LoginItems.h"
#include "platform/OpenPanel.h"
#include "platform/Processes.h"
#include "platform/Signal.h"
#include "platform/StatusBar.h"
#include "platform/SystemLog.h"
#include "platform/WallClock.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

class SimulatedApplication : public Application {
public:
    explicit SimulatedApplication(Journal& journal) : journal_(journal) {}

    /// Marked, so that one can tell a text in the user's language from its key.
    std::string localizedString(std::string_view key) const override {
        return key == "Quorvane" ? name : std::string("*").append(key);
    }
    std::string shortVersion() const override { return "1.2"; }
    void activateIgnoringOtherApps() override { journal_.add("activate"); }
    void terminate() override { journal_.add("terminate"); }

    std::string name = "Quorvane"; ///< Another one where that is translated, too.

private:
    Journal& journal_;
};

/// Answers every alert the same way: a modal one at once, a sheet when the user comes to it.
class SimulatedAlerts : public Alerts {
public:
    explicit SimulatedAlerts(Journal& journal) : journal_(journal) {}

    AlertAnswer runModal(const Alert& alert) override {
        write("alert", alert);
        return answer;
    }
    void beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) override {
        write("sheet", alert);
        completion_ = std::move(completion);
    }

    void answerSheet(int response) { completion_({.response = response}); }

    AlertAnswer answer{.response = alertFirstButtonReturn + 1};

private:
    void write(const char* kind, const Alert& alert);

    Journal& journal_;
    std::function<void(const AlertAnswer&)> completion_;
};

/// Waits for the user.
class SimulatedOpenPanel : public OpenPanel {
public:
    explicit SimulatedOpenPanel(Journal& journal) : journal_(journal) {}

    void beginChoosingApplication(
        std::function<void(std::optional<std::string> bundleIdentifier)> completion) override {
        journal_.add("open panel");
        completion_ = std::move(completion);
    }

    /// None: something that is no application.
    void choose(std::optional<std::string> bundleIdentifier) { completion_(std::move(bundleIdentifier)); }

private:
    Journal& journal_;
    std::function<void(std::optional<std::string>)> completion_;
};

class SimulatedLinks : public Links {
public:
    explicit SimulatedLinks(Journal& journal) : journal_(journal) {}

    void openURL(std::string_view url) override { journal_.add("open ", url); }

private:
    Journal& journal_;
};

class SimulatedClock : public WallClock {
public:
    double secondsSince1970() const override { return now += tick; }

    mutable double now = 1.7e9;
    double tick = 0; ///< How far it goes on with each look.
};

/// Thrown where the process would end.
struct SimulatedExit {};

class SimulatedProcesses : public Processes {
public:
    explicit SimulatedProcesses(Journal& journal) : journal_(journal) {}

    void system(const std::string& command) override { journal_.add("system ", command); }
    void launch(const std::string& path, const std::vector<std::string>& arguments) override;
    void exit(int status) override {
        journal_.add("exit ", status);
        throw SimulatedExit();
    }

private:
    Journal& journal_;
};

class SimulatedStatusBar : public StatusBar {
public:
    explicit SimulatedStatusBar(Journal& journal) : journal_(journal) {}

    std::unique_ptr<StatusItem> statusItemWithLength(double length) override;

    Menu menu; ///< Of the item that was made last.

private:
    Journal& journal_;
};

class SimulatedLog : public SystemLog {
public:
    explicit SimulatedLog(Journal& journal) : journal_(journal) {}

    void log(std::string_view line) override { journal_.add("log ", line); }

private:
    Journal& journal_;
};

class SimulatedLoginItems : public LoginItems {
public:
    explicit SimulatedLoginItems(Journal& journal) : journal_(journal) {}

    bool setEnabled(std::string_view identifier, bool enabled) override {
        journal_.add("login item ", identifier, enabled ? " on" : " off");
        if (!refuses) isOn = enabled;
        return !refuses;
    }
    std::optional<bool> isEnabled(std::string_view /*identifier*/) const override { return isOn; }

    bool refuses = false;
    std::optional<bool> isOn;

private:
    Journal& journal_;
};

class SimulatedCursor : public Cursor {
public:
    std::optional<Point> hotSpot() const override { return current; }

    std::optional<Point> current = Point{4, 4};
};

class SimulatedGlobalEventMonitor : public GlobalEventMonitor {
public:
    explicit SimulatedGlobalEventMonitor(Journal& journal) : journal_(journal) {}

    Subscription addGlobalMonitor(EventMask mask, std::function<void(const Event&)> handler) override;

    /// An event on its way to another program.
    void send(const Event& event) { sent_->emit(event); }

private:
    Journal& journal_;
    using Sent = Signal<const Event&>;
    std::shared_ptr<Sent> sent_ = std::make_shared<Sent>(); ///< Subscriptions may outlive this.
};

} // namespace quorvane
