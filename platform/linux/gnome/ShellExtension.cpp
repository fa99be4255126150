#include "platform/linux/gnome/ShellExtension.h"

#include <chrono>
#include <utility>

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QStandardPaths>

#include "platform/linux/Log.h"
#include "platform/linux/gnome/ShellAddress.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

constexpr std::chrono::seconds longestAnswer{2};

const QString uuid = QString::fromUtf8(maker::shellExtension.data(), qsizetype(maker::shellExtension.size()));

// The shell's own numbers.
constexpr int enabled = 1;
constexpr int disabled = 2;
constexpr int initialized = 6;

bool isInstalled() {
    const auto file = "gnome-shell/extensions/" + uuid + "/metadata.json";
    return !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
}

std::string_view lineAbout(ShellExtension::State state) {
    using enum ShellExtension::State;
    switch (state) {
    case isOff:
        return "the extension of GNOME Shell is not turned on: without it Quorvane neither sees nor switches "
               "anything; the preferences window turns it on";
    case needsLogout:
        return "GNOME Shell has not seen its new extension yet: log out and in once; until then Quorvane "
               "neither sees nor switches anything";
    case isMissing:
        return "the extension of GNOME Shell is not installed: without it Quorvane neither sees nor switches "
               "anything";
    case isRefused:
        return "GNOME Shell refuses the extension: it was made for other versions, or it failed; without it "
               "Quorvane neither sees nor switches anything";
    default:
        return {};
    }
}

} // namespace

ShellExtension::ShellExtension(const QDBusConnection& bus, ShellMessages& messages, GnomeShell& shell)
    : bus_(bus)
    , shell_(shell) {
    bus_.connect(shell_address::service, shell_address::path, shell_address::extensionsInterface,
                 QStringLiteral("ExtensionStateChanged"), this,
                 SLOT(extensionStateChanged(QString, QVariantMap)));
    patience_.setSingleShot(true);
    patience_.setInterval(longestAnswer);
    connect(&patience_, &QTimer::timeout, this, [this] { ask(); });
    subscriptions_.push_back(messages.shellCame.connect([this] { patience_.start(); }));
    subscriptions_.push_back(messages.shellWent.connect([this] {
        patience_.stop();
        setState(State::unknown);
    }));
    subscriptions_.push_back(shell.lost.connect([this] { patience_.start(); }));
    subscriptions_.push_back(shell.starting.connect([this] {
        patience_.stop();
        setState(State::works);
    }));
}

void ShellExtension::turnOn() {
    auto request = question("EnableExtension");
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        ask();
    });
}

void ShellExtension::ask() {
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(question("GetExtensionInfo")), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (watcher->isError()) return;
        take(qdbus_cast<QVariantMap>(watcher->reply().arguments().value(0)));
    });
}

void ShellExtension::extensionStateChanged(const QString& extension, const QVariantMap& info) {
    if (extension == uuid && !patience_.isActive()) take(info);
}

void ShellExtension::take(const QVariantMap& info) {
    if (shell_.isStarted()) return;
    if (info.isEmpty()) return setState(isInstalled() ? State::needsLogout : State::isMissing);
    const int number = info.value("state").toInt();
    if (number == enabled) return setState(State::works);
    setState(number == disabled || number == initialized ? State::isOff : State::isRefused);
}

void ShellExtension::setState(State state) {
    if (std::exchange(state_, state) == state) return;
    if (const auto line = lineAbout(state); !line.empty()) logLine(line);
    changed.emit();
}

QDBusMessage ShellExtension::question(const QString& method) const {
    auto message = QDBusMessage::createMethodCall(shell_address::service, shell_address::path,
                                                  shell_address::extensionsInterface, method);
    message.setAutoStartService(false);
    message.setArguments({uuid});
    return message;
}

} // namespace quorvane
