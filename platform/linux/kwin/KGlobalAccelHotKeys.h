#pragma once

#include <functional>
#include <set>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include "platform/linux/dbus/BusName.h"
#include "platform/linux/keyboard/AskedHotKeys.h"
#include "platform/linux/keyboard/LayoutKeyboard.h"
#include "platform/linux/keyboard/PrintedKeyboard.h"

namespace quorvane {

/// Hot keys as global shortcuts of KDE's, whose service is part of KWin on Wayland. It never takes one away
/// from somebody who has it. It knows keys by what they type in the first layout with Latin letters.
class KGlobalAccelHotKeys : public QObject, public HotKeyBindings {
    Q_OBJECT

public:
    /// The keyboard must outlive this object.
    KGlobalAccelHotKeys(const QDBusConnection& bus, LayoutKeyboard& keyboard);

    void bind(unsigned number, const KeyCombination& combination,
              std::function<void(bool isGranted)> answered) override;
    void unbind(unsigned number, const KeyCombination& combination) override;

private:
    Q_SLOT void shortcutPressed(const QDBusMessage& signal);
    void serviceTold();
    void removeLeftOnes();
    void remove(const QString& action);
    void followLayouts();
    void readKeys(const XkbLayout& layout);
    std::optional<int> keyOf(const KeyCombination& combination) const;

    QDBusConnection bus_;
    LayoutKeyboard& keyboard_;
    TypedKeysyms typed_; ///< In the layout that names the keys.
    TypedKeysyms typedWithShift_;
    std::set<unsigned> bound_;
    BusName service_;
    bool isReady_ = false; ///< Nothing is left there of another process.
    Subscription layoutChanges_;
    Subscription owners_;
};

} // namespace quorvane
