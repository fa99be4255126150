#pragma once

#include <functional>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include "platform/Signal.h"
#include "platform/linux/session/ShellMessages.h"

namespace quorvane {

/// Asks our extension inside GNOME Shell to do something, and asks it for everything whenever it has come.
/// Never waits. There are no limits of time: a shell that hangs does in order, once it goes on, all that it
/// was asked for, and of one that ends the bus tells.
class GnomeShell : public QObject {
    Q_OBJECT

public:
    using Answered = std::function<void(const QDBusMessage& answer)>;

    /// The messages must outlive this object, and be connected to by others after it was made.
    GnomeShell(const QDBusConnection& bus, ShellMessages& messages);

    static QString path();
    static QString interface();

    /// Whether the extension is there and has been asked for everything.
    bool isStarted() const { return isStarted_; }

    /// How often it has told since then who is in front.
    unsigned activations() const { return activations_; }

    /// `answered` gets the answer, or the error, from the event loop, unless the extension has come anew in
    /// between. False, and without effect, while it is not there.
    bool call(const QString& method, const QVariantList& arguments = {}, Answered answered = {});

    Signal<> starting; ///< What the extension has told does no longer count: it tells everything anew ...
    Signal<> started;  ///< ... and has done so now. It knows nothing of what it was asked before.
    Signal<> lost;     ///< It is there no more.

private:
    void start();
    void lose();

    QDBusConnection bus_;
    bool isStarted_ = false;
    unsigned activations_ = 0;
    unsigned starts_ = 0;
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
