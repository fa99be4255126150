#include "virtual-desktop/KWinScripts.h"

#include <QDBusReply>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryFile>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr auto pathOfUser = "/user";

QDBusMessage call(const QString& object, const QString& interface, const QString& method) {
    return QDBusMessage::createMethodCall("org.kde.KWin", object, interface, method);
}

} // namespace

KWinScripts::KWinScripts(QDBusConnection bus) : bus_(std::move(bus)) {
    bus_.registerVirtualObject(pathOfUser, this);
}

KWinScripts::~KWinScripts() {
    bus_.unregisterObject(pathOfUser);
}

bool KWinScripts::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    const auto arguments = message.arguments();
    answers_.insert(arguments.value(0).toInt(), arguments.value(1).toString().toUtf8());
    return connection.send(message.createReply());
}

QJsonValue KWinScripts::evaluate(const QString& expression) {
    const int number = ++number_;
    QFile functions(QUORVANE_VIRTUAL_DESKTOP "/kwin-user.js");
    functions.open(QFile::ReadOnly);
    QTemporaryFile script;
    script.open();
    script.write(functions.readAll());
    script.write(QString("callDBus('%1', '%2', 'of.user', 'Answer', %3, JSON.stringify([%4]));")
                     .arg(bus_.baseService(), pathOfUser)
                     .arg(number)
                     .arg(expression)
                     .toUtf8());
    script.flush();

    const auto name = "user " + QString::number(number);
    auto load = call("/Scripting", "org.kde.kwin.Scripting", "loadScript");
    const QDBusReply<int> loaded = bus_.call(load << script.fileName() << name, QDBus::Block, 5000);
    if (!loaded.isValid()) return QJsonValue::Undefined;
    // All that do not run yet. Its own number may be that of another one, while others come and go.
    bus_.call(call("/Scripting", "org.kde.kwin.Scripting", "start"), QDBus::Block, 5000);
    waitUntil([&] { return answers_.contains(number); }, std::chrono::seconds(5));
    auto unload = call("/Scripting", "org.kde.kwin.Scripting", "unloadScript");
    bus_.call(unload << name, QDBus::Block, 5000);
    return QJsonDocument::fromJson(answers_.take(number)).array().at(0);
}

} // namespace quorvane
