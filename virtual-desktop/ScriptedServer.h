#pragma once

#include <QJsonArray>

#include "virtual-desktop/WaylandServer.h"

namespace quorvane {

/// A compositor inside which functions in JavaScript do what a user does with windows.
class ScriptedServer : public WaylandServer {
public:
    QStringList namesInFront() override;
    QRect place(const QString& window) override;
    void move(const QString& window, const QRect& place) override;

    /// The value of an expression there; undefined when it does not answer.
    virtual QJsonValue evaluate(const QString& expression) = 0;

protected:
    using WaylandServer::WaylandServer;

    QJsonValue call(const QString& function, const QJsonArray& arguments = {});

private:
    void ask(const QString& windowToActivate) override { call("activate", {windowToActivate}); }
};

} // namespace quorvane
