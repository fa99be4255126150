#include "virtual-desktop/ScriptedServer.h"

#include <QJsonDocument>

namespace quorvane {

QJsonValue ScriptedServer::call(const QString& function, const QJsonArray& arguments) {
    return evaluate(function + "(..." + QJsonDocument(arguments).toJson(QJsonDocument::Compact) + ")");
}

QStringList ScriptedServer::namesInFront() {
    return call("namesInFront").toVariant().toStringList();
}

QRect ScriptedServer::place(const QString& window) {
    const auto sides = call("place", {window}).toArray();
    return {sides[0].toInt(), sides[1].toInt(), sides[2].toInt(), sides[3].toInt()};
}

void ScriptedServer::move(const QString& window, const QRect& place) {
    call("move", {window, place.x(), place.y(), place.width(), place.height()});
}

} // namespace quorvane
