#pragma once

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include "platform/linux/input-methods/SessionInputSources.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5InputSources.h"
#include "virtual-desktop/Fcitx5Daemon.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/SessionBus.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XServer.h"

namespace quorvane {

/// A program that can be typed in, without a window, in this process. Has a context when this is made.
class Fcitx5Client {
public:
    Fcitx5Client(Fcitx5Daemon& daemon, const QString& program) : daemon_(&daemon) {
        using Hint = std::pair<QString, QString>;
        qDBusRegisterMetaType<Hint>();
        qDBusRegisterMetaType<QList<Hint>>();
        const QList<Hint> hints{{"program", program}, {"display", "x11:"}};
        const auto answer =
            daemon_->call("/org/freedesktop/portal/inputmethod", "org.fcitx.Fcitx.InputMethod1",
                          "CreateInputContext", {QVariant::fromValue(hints)});
        path_ = answer.arguments().value(0).value<QDBusObjectPath>().path();
    }

    void focusIn() { tell("FocusIn"); }
    void focusOut() { tell("FocusOut"); }

private:
    void tell(const QString& what) { daemon_->call(path_, "org.fcitx.Fcitx.InputContext1", what); }

    Fcitx5Daemon* daemon_;
    QString path_;
};

/// A desktop with Fcitx5, and the program's view of it.
struct Fcitx5Session {
    explicit Fcitx5Session(const Fcitx5Daemon::Settings& settings = {}) : daemon(settings) {}

    std::string current() const {
        const auto current = sources.copyCurrentKeyboardInputSource();
        return current ? current->id : "none";
    }
    bool select(const std::string& id) { return sources.selectInputSource({.id = id}); }
    bool waitForCurrent(const std::string& id) {
        return waitUntil([&] { return current() == id; });
    }
    /// What the context really has that had the focus last.
    bool waitForReal(const QString& inputMethod) {
        return waitUntil([&] { return daemon.inputMethod() == inputMethod; });
    }
    void start() {
        daemon.start();
        waitUntil([&] { return sources.isAvailable(); });
    }

    ScratchFolders folders;
    XServer server{"us,ru,de"};
    SessionBus bus;
    Fcitx5Daemon daemon;
    std::unique_ptr<XConnection> x = XConnection::open();
    std::vector<std::string> drawn, looked;
    XkbInputSources layouts{*x, [this](const std::string& letters) {
                                drawn.push_back(letters);
                                return nullptr;
                            }};
    /// Closed after its receivers have gone: Qt does it in a thread of its own, and touches them there, dying
    /// or not.
    struct Connection {
        ~Connection() { QDBusConnection::disconnectFromBus("program"); }
        QDBusConnection bus =
            QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), "program");
    } connection;
    Fcitx5InputSources sources{connection.bus,
                               layouts,
                               {.draw =
                                    [this](const std::string& letters) {
                                        drawn.push_back(letters);
                                        return nullptr;
                                    },
                                .find =
                                    [this](const std::string& reference) {
                                        looked.push_back(reference);
                                        return nullptr;
                                    }}};
    /// What the rest of the program sees. It repeats selections when the daemon was too busy to answer.
    SessionInputSources desktop{layouts, {&sources}};
};

} // namespace quorvane
