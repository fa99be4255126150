#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include <QDBusConnection>
#include <QObject>

#include "platform/linux/dbus/BusMonitor.h"

namespace quorvane {

/// Tells which context has got the focus, or another input method, and what that is now. Fcitx5 tells it only
/// the program whose context it is, so this listens in: to that one signal, which has nothing of what is
/// typed.
///
/// Contexts of programs that do not use Fcitx5 by D-Bus (XIM) are not among them.
class Fcitx5ContextNews {
public:
    struct News {
        std::string context; ///< No two have the same.
        int process = 0;     ///< The one that has the context; 0 for a program in a sandbox.
        std::string inputMethod;
    };

    /// `told` is called from the event loop, in the order of what happens.
    Fcitx5ContextNews(QDBusConnection bus, std::function<void(const News&)> told);

    /// Whether everything is told from now on. Some buses may not allow it.
    bool isTelling() const { return monitor_.isHearing(); }

private:
    struct Heard {
        std::string connection;
        News news;
    };

    void heard(const BusMonitor::Message& signal);
    void tell();
    void askForProcess(const std::string& connection);

    QDBusConnection bus_;
    std::function<void(const News&)> told_;
    std::deque<Heard> heard_; ///< What waits for its process, or for what is before it.
    std::map<std::string, std::optional<int>> processes_; ///< By connection; none for those that are gone.
    QObject answers_; ///< The context of calls: their answers end with it.
    BusMonitor monitor_;
};

} // namespace quorvane
