#include "shortcuts/PTHotKeyCenter.h"

#include <utility>

#include "settings/InputShortcut.h"

namespace quorvane {
namespace {

PTHotKeyCenter* theCenter = nullptr;

} // namespace

PTHotKeyCenter::PTHotKeyCenter(HotKeys& hotKeys)
    : hotKeys_(hotKeys)
    , changes_(hotKeys.changed.connect([this] { registerAllAgain(); })) {
    theCenter = this;
}

PTHotKeyCenter::~PTHotKeyCenter() {
    theCenter = nullptr;
}

PTHotKeyCenter* PTHotKeyCenter::sharedCenter() {
    return theCenter;
}

bool PTHotKeyCenter::registerHotKey(PTHotKeyRef hotKey) {
    const auto identifier = hotKey->identifier();
    auto& registration = registrations_[identifier];
    const bool givesBack = registration.subscription.has_value();
    registration = {std::move(hotKey), std::nullopt};
    registerAgain(registration);
    if (givesBack) tryRefused();
    return !isRefused(identifier);
}

void PTHotKeyCenter::unregisterHotKey(const PTHotKey& hotKey) {
    registrations_.erase(hotKey.identifier());
    tryRefused();
}

PTHotKeyRef PTHotKeyCenter::hotKeyWithIdentifier(std::string_view identifier) const {
    const auto found = registrations_.find(identifier);
    return found == registrations_.end() ? nullptr : found->second.hotKey;
}

bool PTHotKeyCenter::isRefused(std::string_view identifier) const {
    const auto found = registrations_.find(identifier);
    return found != registrations_.end() && !found->second.subscription;
}

void PTHotKeyCenter::registerAgain(Registration& registration) {
    const auto& hotKey = registration.hotKey;
    const auto shortcut = InputShortcut::ofRecord(hotKey->keyCombo());
    if (!shortcut) return;
    registration.subscription =
        hotKeys_.registerHotKey({shortcut->keyCode, static_cast<std::uint64_t>(shortcut->modifierFlags)},
                                [hotKey] { hotKey->perform(); });
}

void PTHotKeyCenter::tryRefused() {
    for (auto& [identifier, registration] : registrations_)
        if (!registration.subscription) registerAgain(registration);
}

void PTHotKeyCenter::registerAllAgain() {
    bool isNews = false;
    for (auto& [identifier, registration] : registrations_) {
        const bool wasRefused = isRefused(identifier);
        registration.subscription.reset(); // One that rests would be refused as our own.
        registerAgain(registration);
        isNews |= wasRefused != isRefused(identifier);
    }
    if (isNews) refusalsChanged.emit();
}

} // namespace quorvane
