#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/HotKeys.h"
#include "shortcuts/PTHotKey.h"

namespace quorvane {

/// The program's hot keys, by their identifiers. There is one such registry in the process. Those that the
/// desktop refuses are kept, and tried again when one of the others is given back or the desktop tells of a
/// change.
class PTHotKeyCenter {
public:
    explicit PTHotKeyCenter(HotKeys& hotKeys);
    ~PTHotKeyCenter();
    PTHotKeyCenter(const PTHotKeyCenter&) = delete;
    PTHotKeyCenter& operator=(const PTHotKeyCenter&) = delete;

    /// The one there is; null before and after its life.
    static PTHotKeyCenter* sharedCenter();

    /// Takes the place of the one registered before under the same identifier. False when the desktop refuses
    /// the combination, or the record is none.
    bool registerHotKey(PTHotKeyRef hotKey);

    void unregisterHotKey(const PTHotKey& hotKey);

    /// The hot key kept under this identifier; null when there is none.
    PTHotKeyRef hotKeyWithIdentifier(std::string_view identifier) const;

    /// Whether there is one, but pressing it has no effect.
    bool isRefused(std::string_view identifier) const;

    Signal<> refusalsChanged; ///< By a change of the desktop.

private:
    struct Registration {
        PTHotKeyRef hotKey;
        std::optional<Subscription> subscription; ///< None while it is refused.
    };

    void registerAgain(Registration& registration);
    void tryRefused();
    void registerAllAgain();

    HotKeys& hotKeys_;
    std::map<std::string, Registration, std::less<>> registrations_;
    Subscription changes_;
};

} // namespace quorvane
