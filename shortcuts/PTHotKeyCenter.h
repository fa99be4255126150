#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/HotKeys.h"
#include "shortcuts/PTHotKey.h"

namespace quorvane {

/// The program's hot keys, by their identifiers. There is one such registry in the process.
class PTHotKeyCenter {
public:
    explicit PTHotKeyCenter(HotKeys& hotKeys) : hotKeys_(hotKeys) {}

    /// A hot key registered before under the same identifier is unregistered. False when the desktop refuses
    /// the combination, or the record is none: the hot key is not kept then.
    bool registerHotKey(PTHotKeyRef hotKey);

    void unregisterHotKey(const PTHotKey& hotKey);

    /// The registered hot key of this identifier; null when there is none.
    PTHotKeyRef hotKeyWithIdentifier(std::string_view identifier) const;

private:
    struct Registration {
        PTHotKeyRef hotKey;
        Subscription subscription;
    };

    HotKeys& hotKeys_;
    std::map<std::string, Registration, std::less<>> registrations_;
};

} // namespace quorvane
