#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QTimer>

#include "platform/Signal.h"
#include "platform/linux/gnome/GnomeShell.h"

namespace quorvane {

/// Whether GNOME Shell runs our extension, and if not, what the user can do about it.
class ShellExtension : public QObject {
    Q_OBJECT

public:
    enum class State {
        unknown,     ///< The shell has not answered, or has only just come.
        works,       ///< Also: it is on, and will be ready soon.
        isOff,       ///< `turnOn` helps.
        needsLogout, ///< It was installed while the shell ran, which looks for extensions when it starts.
        isMissing,   ///< It is not installed.
        isRefused    ///< The shell says that it does not fit, or that it failed.
    };

    /// All must outlive this object.
    ShellExtension(const QDBusConnection& bus, ShellMessages& messages, GnomeShell& shell);

    State state() const { return state_; }

    /// Has the shell run it, now and in later sessions. The state tells what came of it.
    void turnOn();

    Signal<> changed; ///< The state has.

private:
    Q_SLOT void extensionStateChanged(const QString& uuid, const QVariantMap& info);
    void ask();
    void take(const QVariantMap& info);
    void setState(State state);
    QDBusMessage question(const QString& method) const;

    QDBusConnection bus_;
    GnomeShell& shell_;
    State state_ = State::unknown;
    QTimer patience_; ///< A shell that starts, or turns others off, is not asked in the middle of it.
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
