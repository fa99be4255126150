#pragma once

#include <map>
#include <optional>
#include <set>

#include <QObject>

#include "platform/linux/keyboard/AskedHotKeys.h"
#include "platform/linux/keyboard/LayoutKeyboard.h"
#include "platform/linux/keyboard/PrintedKeyboard.h"
#include "platform/linux/sway/SwayBindings.h"
#include "platform/linux/sway/SwayIpc.h"

namespace quorvane {

/// Hot keys as bindings of sway's that last until its configuration is loaded again, or this program ends.
/// sway would have them replace the user's own without a word, so the configuration is read first.
class SwayHotKeys : public HotKeyBindings {
public:
    /// Both must outlive this object.
    SwayHotKeys(SwayIpc& sway, const LayoutKeyboard& keyboard);

    void bind(unsigned number, const KeyCombination& combination,
              std::function<void(bool isGranted)> answered) override;
    void unbind(unsigned number, const KeyCombination& combination) override;

private:
    /// X11's.
    struct Keys {
        std::uint16_t modifiers;
        std::uint8_t keycode;
    };

    static std::optional<Keys> keysOf(const KeyCombination& combination);
    void handleEvent(SwayEvent type, const QJsonObject& event);
    void readConfiguration();
    void bindNow(unsigned number, const Keys& keys, const std::function<void(bool isGranted)>& answered);
    void whenReady(std::function<void()> task);
    void startWaiting();
    bool isTaken(const Keys& keys) const;

    SwayIpc& sway_;
    const LayoutKeyboard& keyboard_;
    std::optional<std::vector<SwayBinding>> usersBindings_; ///< None until they are known.
    bool isInDefaultMode_ = false;                          ///< sway binds keys in the mode it is in.
    std::vector<std::function<void()>> waiting_;            ///< For both of these.
    std::set<unsigned> bound_;
    QObject later_; ///< The context of queued calls: they end with it.
    Subscription openings_;
    Subscription events_;
};

} // namespace quorvane
