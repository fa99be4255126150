#pragma once

#include <map>
#include <string>
#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include "platform/Signal.h"
#include "platform/linux/applications/WindowId.h"
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
    bool isShellThere() const { return !owner_.isEmpty(); }

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    Q_SLOT void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    void setOwner(const QString& owner);
    void replaceOwner(const QString& owner);
    WindowId numberOf(const QString& window);

    struct Method;
    static const Method* methodNamed(const QString& name);

    QDBusConnection bus_;
    QString shell_;
    QString owner_;                       ///< The connection that is heard; empty while nobody is.
    bool isOwnerKnown_ = false;           ///< The bus has told who it is, or that there is none.
    std::vector<QDBusMessage> early_;     ///< Calls from before that, in their order.
    std::map<QString, WindowId> numbers_; ///< Shells tell windows apart by texts.
    WindowId lastNumber_ = noWindow;
    bool hasRefused_ = false;
};

} // namespace quorvane
