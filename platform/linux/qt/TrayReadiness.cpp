#include "platform/linux/qt/TrayReadiness.h"

#include <limits>
#include <utility>

#include <QDBusMessage>

#include "platform/linux/Log.h"
#include "platform/linux/dbus/AsyncCall.h"
#include "platform/linux/dbus/SessionBus.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {
namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

/// An answer counts whenever it comes.
constexpr int anyTime = std::numeric_limits<int>::max();

xcb_atom_t traySelection(XConnection& x) {
    const auto name = "_NET_SYSTEM_TRAY_S" + std::to_string(x.screenNumber());
    return x.atom(name);
}

} // namespace

TrayReadiness::TrayReadiness(XConnection* x, std::function<void()> ready)
    : x_(x)
    , ready_(std::move(ready))
    , watcher_(sessionBus(), watcherService)
    , watchers_(watcher_.told.connect([this](const auto& /*before*/) {
        if (ready_) toldOfWatcher();
    })) {}

void TrayReadiness::toldOfWatcher() {
    if (!watcher_.isOwned()) return lookForOlderTray();
    setMissing(false);
    askWatcher();
}

void TrayReadiness::askWatcher() {
    auto question = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                                   QStringLiteral("org.freedesktop.DBus.Properties"),
                                                   QStringLiteral("Get"));
    question.setArguments({watcherService, QStringLiteral("IsStatusNotifierHostRegistered")});
    callAsync(
        sessionBus(), question, this,
        [this](const QDBusMessage& answer) {
            if (ready_) toldByWatcher(answer);
        },
        anyTime);
}

void TrayReadiness::toldByWatcher(const QDBusMessage& answer) {
    // One that went away without an answer is told of by its name, and so is the next one.
    const bool isSilent = answer.type() != QDBusMessage::ReplyMessage &&
                          answer.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NoReply");
    if (watcher_.isOwned() && !isSilent) finish();
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
        if (isTray && !watcher_.isOwned()) finish();
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
