#include "control/SeenEvents.h"

#include "control/ShortcutText.h"
#include "input/CompanionMessages.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

/// F20 with every modifier: hardly a keyboard has the key, and nobody uses it.
constexpr std::int64_t f20 = 0x5a;
constexpr auto everyModifier =
    ModifierFlag::control | ModifierFlag::option | ModifierFlag::shift | ModifierFlag::command;
constexpr KeyCombination unlikely{f20, everyModifier};

} // namespace

void SeenEvents::watch() {
    watchApplications();
    watchMessages();
    watchHand();
    subscriptions_.push_back(desktop_.hotKeys.changed.connect([this] { hasKeyboardChanged_ = true; }));
    hotKey_ = desktop_.hotKeys.registerHotKey(unlikely, [] {});
}

void SeenEvents::watchApplications() {
    using enum WorkspaceNotification;
    constexpr std::pair<const char*, WorkspaceNotification> notifications[] = {
        {"activated", didActivateApplication},
        {"shown again", didUnhideApplication},
        {"launched", didLaunchApplication},
        {"left the front", didLeaveFront}};
    for (const auto& [event, notification] : notifications)
        subscriptions_.push_back(desktop_.workspace.addObserver(
            notification, [&times = counterOf(event)](const auto&) { ++times; }));
    subscriptions_.push_back(
        desktop_.windowList.addFrontWindowObserver([&times = counterOf("front window moved")] { ++times; }));
    subscriptions_.push_back(desktop_.windowList.addLauncherObserver(
        [&times = counterOf("launcher told")](const auto&) { ++times; }));
}

void SeenEvents::watchMessages() {
    const std::string ownMessage = std::string(maker::bundleIdentifier) + ".SelfCheck";
    const auto count = [this](std::string_view name, int& times) {
        subscriptions_.push_back(
            desktop_.distributedNotifications.addObserver(name, [&times](const auto&) { ++times; }));
    };
    count(selectedKeyboardInputSourceChangedNotification, counterOf("source changed"));
    count(message::windowAdjusted, counterOf("moved by the companion"));
    count(ownMessage, ownMessages_);
    desktop_.distributedNotifications.post({ownMessage, {}});
}

void SeenEvents::watchHand() {
    auto& modifiers = counterOf("modifiers");
    auto& clicks = counterOf("clicks");
    subscriptions_.push_back(desktop_.globalEvents.addGlobalMonitor(
        eventMask(EventType::leftMouseUp) | eventMask(EventType::flagsChanged),
        [&](const Event& event) { ++(event.type == EventType::flagsChanged ? modifiers : clicks); }));
}

/// Where the answer comes later, registering it anew tells.
bool SeenEvents::isHotKeyGranted() {
    if (hotKey_ && hasKeyboardChanged_) {
        hotKey_->end();
        hotKey_ = desktop_.hotKeys.registerHotKey(unlikely, [] {});
    }
    return hotKey_.has_value();
}

void SeenEvents::tell(const TellFact& tell) {
    tell("hot key", textOfShortcut({f20, std::int64_t{everyModifier}}) +
                        (isHotKeyGranted() ? ": granted" : ": refused"));
    tell("own message", ownMessages_ > 0 ? "came back" : "did not come back");
    std::string seen;
    for (const auto& [event, times] : counts_)
        seen.append(seen.empty() ? "" : ", ").append(event).append(" ").append(std::to_string(times));
    tell("events", seen);
    hotKey_.reset();
    subscriptions_.clear();
}

} // namespace quorvane
