#pragma once

// The contracts of the ports as far as they hold for the sessions of Wayland compositors, each with the
// compositor's own desktop. That of the screens does not: the toolkit of a process has the screens of one
// display, and these processes open a compositor for each case. What follows the screens is tested with the
// whole program, on two.

#include "contracts/FrontWindowContract.h"
#include "contracts/HotKeysContract.h"
#include "contracts/TextInputSourcesContract.h"
#include "contracts/WorkspaceContract.h"
#include "linux/wayland/SessionBench.h"
#include "platform/linux/keyboard/KeyCodes.h"
#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {

template <class Bench>
class SessionBench : public Bench {
public:
    explicit SessionBench(const MakeDesktop& make) : desktop_(make()) {}
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }

protected:
    std::unique_ptr<SessionDesktop> desktop_;
    SessionParts parts_ = desktop_->parts();
};

class SessionWorkspaceBench : public SessionBench<WorkspaceBench> {
public:
    using SessionBench::SessionBench;
    Workspace& workspace() override { return desktop_->applications.workspace; }
    void openWindow(const std::string& id) override {
        const auto name = QString::fromStdString(id);
        windows_[id].emplace_back(name, name);
    }
    void activate(const std::string& id) override {
        EXPECT_TRUE(desktop_->server().activate(QString::fromStdString(id)));
    }
    void hide(const std::string& id) override { desktop_->minimise(QString::fromStdString(id)); }
    void quit(const std::string& id) override { windows_.erase(id); }

private:
    std::map<std::string, std::list<WaylandWindow>> windows_;
};

class SessionWindowListBench : public SessionBench<OnScreenWindowListBench> {
public:
    using SessionBench::SessionBench;
    OnScreenWindowList& windowList() override { return parts_.windowList; }
    double widestFrame() const override { return 0; }
    void openWindow(const std::string& owner, const std::string& title, Rect bounds) override {
        const auto name = QString::fromStdString(title);
        owners_[title] = QString::fromStdString(owner);
        windows_.emplace_back(name, owners_[title]);
        const QRect place(int(bounds.x), int(bounds.y), int(bounds.width), int(bounds.height));
        EXPECT_TRUE(waitUntil([&] {
            desktop_->server().move(name, place);
            return desktop_->server().place(name) == place;
        }));
    }
    void bringToFront(const std::string& title) override {
        EXPECT_TRUE(desktop_->server().activate(QString::fromStdString(title)));
    }
    void minimise(const std::string& title) override { desktop_->minimise(owners_.at(title)); }

private:
    std::list<WaylandWindow> windows_;
    std::map<std::string, QString> owners_;
};

class SessionSourcesBench : public SessionBench<TextInputSourcesBench> {
public:
    explicit SessionSourcesBench(const MakeDesktop& make) : SessionBench(make) {
        tell();
        EXPECT_TRUE(waitUntil([&] { return idsOf(sources().createInputSourceList()) == ids_; }));
        changes_ = parts_.layouts.selectionChanged.connect([this] { ++told_; });
    }
    TextInputSources& sources() override { return parts_.layouts; }
    int changesTold() const override { return told_; }
    // Somebody who sees what is selected: a compositor may take two programs' wishes in any order.
    void selectFromOutside(const std::string& id) override {
        EXPECT_TRUE(
            waitUntil([&] { return desktop_->server().layout() == placeOf(currentIdIn(sources())); }));
        desktop_->server().selectLayout(placeOf(id));
    }
    void disable(const std::string& id) override {
        std::erase(ids_, id);
        tell();
    }

private:
    unsigned placeOf(const std::string& id) const {
        return static_cast<unsigned>(std::ranges::find(ids_, id) - ids_.begin());
    }
    void tell() {
        QByteArrayList layouts, variants;
        for (const auto& id : ids_) {
            const auto layout = layoutOfID(id);
            layouts << layout->layout.c_str();
            variants << layout->variant.c_str();
        }
        desktop_->setLayouts(layouts.join(','), variants.join(','));
    }

    std::vector<std::string> ids_{"xkb:us", "xkb:ru", "xkb:de:neo"};
    int told_ = 0;
    Subscription changes_;
};

class SessionHotKeysBench : public SessionBench<HotKeysBench> {
public:
    using SessionBench::SessionBench;
    HotKeys& hotKeys() override { return parts_.hotKeys; }
    void press(const KeyCombination& combination) override {
        constexpr std::uint8_t capsLock = 66;
        const bool hasCapsLock = combination.modifierFlags & ModifierFlag::capsLock;
        auto& server = desktop_->server();
        if (hasCapsLock) server.pressTogether({capsLock});
        std::vector<std::uint8_t> keys;
        for (const auto& [flag, key] : {std::pair(ModifierFlag::shift, std::uint8_t{50}),
                                        {ModifierFlag::control, std::uint8_t{37}},
                                        {ModifierFlag::option, std::uint8_t{64}},
                                        {ModifierFlag::command, std::uint8_t{133}}})
            if (combination.modifierFlags & flag) keys.push_back(key);
        keys.push_back(xKeycodeOf(combination.keyCode).value());
        desktop_->settle();
        server.pressTogether(keys);
        if (hasCapsLock) server.pressTogether({capsLock});
    }
    void takeFromOutside(const KeyCombination& combination) override { desktop_->takeKeys(combination); }

private:
    WaylandWindow front_{"front"};
};

template <class Bench>
auto on(const MakeDesktop& make) {
    return testing::Values([make] { return std::make_unique<Bench>(make); });
}

} // namespace quorvane
