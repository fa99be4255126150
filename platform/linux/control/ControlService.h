#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include "control/AgentCommands.h"

namespace quorvane {

/// Takes commands on the session bus, which only this user's programs reach. Without a bus it does nothing.
/// The bus is never waited for: the name is asked for, and comes when it is free.
class ControlService : public QDBusVirtualObject {
    Q_OBJECT

public:
    ControlService(const QDBusConnection& bus, AgentCommands& commands);
    ~ControlService() override;

    /// The bus gives this process the name by which others know the program, or lets it wait in line. GNOME
    /// Shell tells only whoever has it.
    static void takeName(const QDBusConnection& bus);

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QDBusMessage run(const QDBusMessage& message);
    void tell(const PropertyList& decision);

    QDBusConnection bus_;
    AgentCommands& commands_;
    Subscription decisions_;
};

} // namespace quorvane
