#pragma once

#include <algorithm>
#include <memory>
#include <set>
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

namespace quorvane {

class SimulatedApplication : public Application {
public:
    std::string localizedString(std::string_view key) const override { return std::string(key); }
    std::string shortVersion() const override { return "1.2"; }
    void activateIgnoringOtherApps() override { ++activations; }
    void terminate() override { isTerminated = true; }

    int activations = 0;
    bool isTerminated = false;
};

/// Answers every alert the same way, and keeps what was asked.
class SimulatedAlerts : public Alerts {
public:
    AlertAnswer runModal(const Alert& alert) override {
        shown.push_back(alert);
        return answer;
    }

    void beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) override {
        shown.push_back(alert);
        completion(answer);
    }

    AlertAnswer answer{.response = alertFirstButtonReturn + 1};
    std::vector<Alert> shown;
};

/// Waits for the user.
class SimulatedOpenPanel : public OpenPanel {
public:
    void beginChoosingApplication(
        std::function<void(std::optional<std::string> bundleIdentifier)> completion) override {
        completion_ = std::move(completion);
    }

    /// None: something that is no application.
    void choose(std::optional<std::string> bundleIdentifier) { completion_(std::move(bundleIdentifier)); }

private:
    std::function<void(std::optional<std::string>)> completion_;
};

class SimulatedLinks : public Links {
public:
    void openURL(std::string_view url) override { opened.emplace_back(url); }

    std::vector<std::string> opened;
};

class SimulatedClock : public WallClock {
public:
    double secondsSince1970() const override { return now; }

    double now = 1.7e9;
};

class SimulatedProcesses : public Processes {
public:
    void system(const std::string& command) override { commands.push_back(command); }
    void launch(const std::string& path, const std::vector<std::string>& arguments) override;
    void exit(int status) override { exitStatuses.push_back(status); }

    std::vector<std::string> commands; ///< Shell commands and launched programs, as a shell would show them.
    std::vector<int> exitStatuses;
};

/// What a status item was told; outlives the item.
struct SimulatedStatusItemState {
    ImageRef image;
    Menu menu;
    std::string toolTip;
    bool highlights = false;
    bool isVisible = false;
};

class SimulatedStatusBar : public StatusBar {
public:
    std::unique_ptr<StatusItem> statusItemWithLength(double length) override;

    std::vector<std::shared_ptr<SimulatedStatusItemState>> items;
};

class SimulatedLog : public SystemLog {
public:
    void log(std::string_view line) override { lines.emplace_back(line); }

    std::vector<std::string> lines;
};

class SimulatedLoginItems : public LoginItems {
public:
    bool setEnabled(std::string_view identifier, bool enabled) override {
        calls.emplace_back(identifier, enabled);
        return !refuses;
    }

    bool refuses = false;
    std::vector<std::pair<std::string, bool>> calls;
};

class SimulatedCursor : public Cursor {
public:
    std::optional<Point> hotSpot() const override { return current; }

    std::optional<Point> current = Point{4, 4};
};

class SimulatedGlobalEventMonitor : public GlobalEventMonitor {
public:
    Subscription addGlobalMonitor(EventMask mask, std::function<void(const Event&)> handler) override;

    /// An event on its way to another program.
    void send(const Event& event) { sent_.emit(event); }

    /// Whether somebody watches events of that type.
    bool isWatching(EventType type) const {
        return std::ranges::any_of(*masks_, [&](EventMask mask) { return (mask & eventMask(type)) != 0; });
    }

private:
    Signal<const Event&> sent_;
    std::shared_ptr<std::multiset<EventMask>> masks_ = std::make_shared<std::multiset<EventMask>>();
};

} // namespace quorvane
