#include "platform/linux/qt/TrayReadiness.h"

#include <limits>
#include <utility>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "platform/linux/Log.h"
#include "platform/linux/dbus/SessionBus.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {
namespace {

const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");
const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

/// An answer counts whenever it comes.
constexpr int anyTime = std::numeric_limits<int>::max();

xcb_atom_t traySelection(XConnection& x) {
    const auto name = "_NET_SYSTEM_TRAY_S" + std::to_string(x.screenNumber());
    return x.atom(name);
}

} // namespace

TrayReadiness::TrayReadiness(XConnection* x, std::function<void()> ready) : x_(x), ready_(std::move(ready)) {
    sessionBus().connect(busService, busPath, busService, QStringLiteral("NameOwnerChanged"),
                         {watcherService}, QString(), this, SLOT(ownerChanged(QString, QString, QString)));
    if (!sessionBus().isConnected()) {
        QMetaObject::invokeMethod(
            this, [this] { lookForOlderTray(); }, Qt::QueuedConnection);
        return;
    }
    auto question =
        QDBusMessage::createMethodCall(busService, busPath, busService, QStringLiteral("NameHasOwner"));
    question.setArguments({watcherService});
    ask(question, &TrayReadiness::toldOfOwner);
}

void TrayReadiness::ask(const QDBusMessage& question, void (TrayReadiness::*answered)(const QDBusMessage&)) {
    auto* answer = new QDBusPendingCallWatcher(sessionBus().asyncCall(question, anyTime), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, answered] {
        answer->deleteLater();
        if (ready_) (this->*answered)(answer->reply());
    });
}

void TrayReadiness::ownerChanged(const QString& /*name*/, const QString& /*oldOwner*/,
                                 const QString& newOwner) {
    if (!ready_) return;
    hasWatcher_ = !newOwner.isEmpty();
    if (hasWatcher_) {
        setMissing(false);
        askWatcher();
    } else {
        lookForOlderTray();
    }
}

void TrayReadiness::toldOfOwner(const QDBusMessage& answer) {
    // A bus that goes away gives an error, which is a plain answer: nobody is there.
    hasWatcher_ = answer.arguments().value(0).toBool();
    if (hasWatcher_)
        askWatcher();
    else
        lookForOlderTray();
}

void TrayReadiness::askWatcher() {
    auto question = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                                   QStringLiteral("org.freedesktop.DBus.Properties"),
                                                   QStringLiteral("Get"));
    question.setArguments({watcherService, QStringLiteral("IsStatusNotifierHostRegistered")});
    question.setAutoStartService(false);
    ask(question, &TrayReadiness::toldByWatcher);
}

void TrayReadiness::toldByWatcher(const QDBusMessage& answer) {
    // One that went away without an answer is told of by its name, and so is the next one.
    const bool isSilent = answer.type() != QDBusMessage::ReplyMessage &&
                          answer.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NoReply");
    if (hasWatcher_ && !isSilent) finish();
}

bool TrayReadiness::hasOlderTray() const {
    if (!x_) return false;
    const XcbReply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        x_->xcb(), xcb_get_selection_owner(x_->xcb(), traySelection(*x_)), nullptr));
    return owner && owner->owner != XCB_NONE;
}

void TrayReadiness::lookForOlderTray() {
    if (hasOlderTray()) return finish();
    logLine("no system tray: the status item cannot be seen");
    setMissing(true);
    if (x_) watchForOlderTray();
}

/// A tray tells everybody on the root window when it has come.
void TrayReadiness::watchForOlderTray() {
    x_->selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    trays_ = x_->onEvent([this](const xcb_generic_event_t& event) {
        if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE || !ready_) return;
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        const bool isTray =
            message.type == x_->atom("MANAGER") && message.data.data32[1] == traySelection(*x_);
        if (isTray && !hasWatcher_) finish();
    });
}

void TrayReadiness::setMissing(bool isMissing) {
    if (std::exchange(isMissing_, isMissing) != isMissing) missingChanged.emit();
}

void TrayReadiness::finish() {
    trays_ = {};
    setMissing(false);
    std::exchange(ready_, {})();
}

} // namespace quorvane
