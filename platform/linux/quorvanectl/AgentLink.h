#pragma once

#include <functional>
#include <optional>
#include <string>

#include <QDBusConnection>
#include <QObject>

#include "control/CommandResult.h"

class QDBusMessage;

namespace quorvane {

/// The way to the running program, over the session bus. It waits for answers: this is a process of its own.
class AgentLink : public QObject {
    Q_OBJECT

public:
    AgentLink();

    /// None when there is no bus, or the program does not run.
    std::optional<CommandResult> run(const std::string& command, const CommandRequest& request);

    /// Calls the handler with each decision from now on, from the event loop. False without a bus.
    bool watch(std::function<void(const PropertyList&)> handler);

private:
    Q_SLOT void decided(const QDBusMessage& message);

    QDBusConnection bus_;
    std::function<void(const PropertyList&)> handler_;
};

} // namespace quorvane
