#include "platform/linux/input-methods/fcitx5/Fcitx5ContextNews.h"

#include <utility>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include "platform/linux/applications/ProcessFacts.h"

namespace quorvane {
namespace {

constexpr const char* matchRule =
    "type='signal',interface='org.fcitx.Fcitx.InputContext1',member='CurrentIM'";

// Names of connections are never used again: these are only too many programs that have ended.
constexpr std::size_t mostProcesses = 500;

/// Programs in a sandbox talk through a process of this name, which has no windows.
constexpr const char* proxy = "xdg-dbus-proxy";

std::optional<int> processIn(const QDBusMessage& answer) {
    const auto process = answer.arguments().value(0).toInt();
    if (process <= 0) return std::nullopt;
    return executableNameOf(process) == proxy ? 0 : process;
}

} // namespace

Fcitx5ContextNews::Fcitx5ContextNews(QDBusConnection bus, std::function<void(const News&)> told)
    : bus_(std::move(bus))
    , told_(std::move(told))
    , monitor_(matchRule, [this](const auto& signal) { heard(signal); }) {}

/// Its arguments are the input method's name for people, its own name and its language.
void Fcitx5ContextNews::heard(const BusMonitor::Message& signal) {
    if (signal.texts.size() != 3) return;
    const auto& connection = signal.destination;
    heard_.push_back({connection, {connection + signal.path, 0, signal.texts[1]}});
    if (processes_.contains(connection))
        tell();
    else
        askForProcess(connection);
}

void Fcitx5ContextNews::tell() {
    while (!heard_.empty()) {
        const auto process = processes_.find(heard_.front().connection);
        if (process == processes_.end()) return;
        auto news = std::move(heard_.front().news);
        heard_.pop_front();
        if (!process->second) continue;
        news.process = *process->second;
        told_(news);
    }
    if (processes_.size() > mostProcesses) processes_.clear(); // Nothing waits for one.
}

void Fcitx5ContextNews::askForProcess(const std::string& connection) {
    auto ask = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                              "org.freedesktop.DBus", "GetConnectionUnixProcessID");
    ask.setArguments({QString::fromStdString(connection)});
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(ask), &answers_);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &answers_, [this, watcher, connection] {
        watcher->deleteLater();
        processes_[connection] = processIn(watcher->reply());
        tell();
    });
}

} // namespace quorvane
