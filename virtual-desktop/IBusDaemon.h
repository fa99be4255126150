#pragma once

#include <memory>
#include <optional>

#include <QByteArrayList>
#include <QDBusConnection>

#include "virtual-desktop/ChildProcess.h"

namespace quorvane {

/// An IBus daemon of one's own on the current display, and another of its clients. Needs a session bus. Ends
/// with this object.
class IBusDaemon {
public:
    /// Not started yet.
    IBusDaemon() = default;
    ~IBusDaemon() { end(); }
    IBusDaemon(const IBusDaemon&) = delete;
    IBusDaemon& operator=(const IBusDaemon&) = delete;

    void start(); ///< Ready when this returns; takes the place of one that runs.
    void end();
    void kill();   ///< Leaves the file with its address.
    void stop();   ///< It hangs until it is continued.
    void resume(); ///< Goes on after `stop`.

    /// What IBus' own panel would do when the user chooses an engine. False when the daemon refuses.
    bool setGlobalEngine(const QString& engine);
    QString globalEngine();        ///< Empty when there is none.
    QString currentInputContext(); ///< The path of a program's that has the focus; empty when none has.

    /// Kills the process behind an engine, of which the daemon tells nobody. False when there is none.
    bool killEngine(const QString& program);

    /// The engines that the user enables, once a session bus is there; kept in the user's settings.
    static void setPreloadEngines(const QStringList& engines);

    /// Another of them; `schema` is the last part of its name.
    static void set(const QString& schema, const QString& key, const QString& value);

    /// The file in which the daemons of this display leave their address.
    static QString addressFile();

private:
    QDBusMessage call(const QString& interfaceName, const QString& method, const QVariantList& arguments);
    QByteArrayList processes() const; ///< That the daemon has started.
    QString clientName() const;
    void disconnectClient();

    std::unique_ptr<ChildProcess> process_;
    std::optional<QDBusConnection> client_;
};

} // namespace quorvane
