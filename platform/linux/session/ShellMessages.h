#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include "platform/Signal.h"
#include "platform/linux/applications/WindowId.h"
#include "platform/linux/dbus/BusName.h"
#include "platform/linux/session/CompositorWindow.h"

namespace quorvane {

/// An input source as a shell tells of it.
struct ShellSource {
    std::string id; ///< As rules have it: `xkb:ru:phonetic`, `ibus:libpinyin`.
    std::string name;
    std::string shortName;

    bool operator==(const ShellSource&) const = default;
};

/// What a script inside a compositor tells this program on the session bus: the object that its calls are
/// for. Only the connection that owns the compositor's own name is heard, also of what it said before the bus
/// has told who that is; a call of anybody else is refused, and logged once. Every method on the bus has a
/// signal here.
class ShellMessages : public QDBusVirtualObject {
    Q_OBJECT

public:
    /// `shell` is the compositor's name on the bus: "org.kde.KWin".
    ShellMessages(const QDBusConnection& bus, const QString& shell);
    ~ShellMessages() override;

    // Where on the bus, under the name of the program, scripts find it.
    static QString path();
    static QString interface();

    Signal<WindowId, const CompositorWindow&> windowChanged;
    Signal<WindowId> windowClosed;
    Signal<WindowId> windowActivated; ///< None: nobody is in front.
    Signal<const std::string& /*desktopId*/, bool /*isOpen*/> launcherChanged;
    Signal<unsigned> hotKeyPressed;
    Signal<const std::vector<ShellSource>&, const std::string& /*current*/> sourcesChanged;
    Signal<const std::string& /*current*/> sourceChanged;

    Signal<> ready; ///< It waits to be asked for all of the above.
    Signal<> ended; ///< It tells nothing more.

    Signal<> shellCame; ///< A compositor has the name now: the first one, or another one.
    Signal<> shellWent;
    bool isShellThere() const { return shell_.isOwned(); }

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    void shellTold(const std::optional<QString>& before);
    WindowId numberOf(const QString& window);

    struct Method;
    static const Method* methodNamed(const QString& name);

    QDBusConnection bus_;
    QString shellName_;
    BusName shell_; ///< Its owner is heard.
    Subscription shells_;
    std::vector<QDBusMessage> early_;     ///< Calls from before the bus has told of it, in their order.
    std::map<QString, WindowId> numbers_; ///< Shells tell windows apart by texts.
    WindowId lastNumber_ = noWindow;
    bool hasRefused_ = false;
};

} // namespace quorvane
