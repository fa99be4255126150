#include "platform/linux/gnome/GnomeShell.h"

#include <limits>
#include <utility>

#include <QDBusPendingCallWatcher>

#include "platform/linux/control/ControlAddress.h"
#include "platform/linux/gnome/ShellAddress.h"

namespace quorvane {
namespace {

constexpr int patience = std::numeric_limits<int>::max();

} // namespace

GnomeShell::GnomeShell(const QDBusConnection& bus, ShellMessages& messages) : bus_(bus) {
    // It is ready when it sees this program's name on the bus, and refuses whoever does not have that yet.
    subscriptions_.push_back(messages.ready.connect([this] { start(); }));
    subscriptions_.push_back(messages.ended.connect([this] { lose(); }));
    subscriptions_.push_back(messages.shellWent.connect([this] { lose(); }));
    subscriptions_.push_back(messages.windowActivated.connect([this](auto) { ++activations_; }));
}

QString GnomeShell::path() {
    return control_address::path() + "/Shell";
}

QString GnomeShell::interface() {
    return control_address::service() + ".Shell";
}

bool GnomeShell::call(const QString& method, const QVariantList& arguments, Answered answered) {
    if (!isStarted_) return false;
    auto message = QDBusMessage::createMethodCall(shell_address::service, path(), interface(), method);
    message.setAutoStartService(false);
    message.setArguments(arguments);
    if (!answered) return bus_.send(message);
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(message, patience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, start = starts_, answered = std::move(answered)] {
                watcher->deleteLater();
                if (start == starts_) answered(watcher->reply());
            });
    return true;
}

/// Everything is told before the answer comes.
void GnomeShell::start() {
    ++starts_;
    activations_ = 0;
    isStarted_ = true;
    starting.emit();
    call("Start", {}, [this](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ReplyMessage)
            started.emit();
        else
            lose();
    });
}

void GnomeShell::lose() {
    ++starts_;
    if (std::exchange(isStarted_, false)) lost.emit();
}

} // namespace quorvane
