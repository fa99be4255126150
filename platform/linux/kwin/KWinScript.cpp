#include "platform/linux/kwin/KWinScript.h"

#include <array>
#include <chrono>
#include <string_view>

#include <QFile>
#include <QStandardPaths>
#include <QTimer>

#include "platform/linux/Log.h"
#include "platform/linux/control/ControlAddress.h"
#include "platform/linux/dbus/AsyncCall.h"
#include "platform/linux/files/ReplaceFile.h"
#include "platform/linux/kwin/WindowsScript.h"

namespace quorvane {
namespace {

const QString pluginName = QStringLiteral("quorvane");
constexpr std::chrono::milliseconds pauseAfterFailure{250}; // It doubles.
constexpr int mostFailures = 8;

QDBusMessage scriptingCall(const char* method, const QVariantList& arguments = {}) {
    auto call = QDBusMessage::createMethodCall("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting",
                                               QLatin1String(method));
    call.setArguments(arguments);
    return call;
}

/// One name for all times, so that nothing piles up there.
QString fileInRuntimeFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + '/' +
           control_address::service() + ".kwin.js";
}

} // namespace

KWinScript::KWinScript(const QDBusConnection& bus, ShellMessages& messages)
    : bus_(bus)
    , file_(fileInRuntimeFolder())
    , arrivals_(messages.shellCame.connect([this] {
        failures_ = 0;
        load();
    })) {}

KWinScript::~KWinScript() {
    auto call = scriptingCall("unloadScript", {pluginName});
    call.setAutoStartService(false);
    bus_.send(call);
    QFile::remove(file_);
}

/// One of a process that was killed may be there still.
void KWinScript::load() {
    if (isLoading_) return;
    isLoading_ = true;
    callAsync(bus_, scriptingCall("unloadScript", {pluginName}), this, [this](const auto& answer) {
        if (answer.type() == QDBusMessage::ReplyMessage)
            loadFile();
        else
            failed();
    });
}

void KWinScript::loadFile() {
    if (!writeFile()) return failed();
    callAsync(bus_, scriptingCall("loadScript", {file_, pluginName}), this, [this](const auto& answer) {
        if (answer.arguments().value(0, -1).toInt() >= 0)
            start();
        else
            failed();
    });
}

void KWinScript::start() {
    isLoading_ = false;
    failures_ = 0;
    starts.emit();
    callAsync(bus_, scriptingCall("start"), this);
}

/// KWin has its name before it takes scripts.
void KWinScript::failed() {
    isLoading_ = false;
    if (++failures_ > mostFailures)
        return logLine(
            "KWin does not take the script that tells of its windows: nobody is known to be in front");
    QTimer::singleShot(pauseAfterFailure * (1 << (failures_ - 1)), this, [this] { load(); });
}

bool KWinScript::writeFile() const {
    const auto script = QByteArray(windowsScript)
                            .replace("%SERVICE%", bus_.baseService().toUtf8())
                            .replace("%PATH%", ShellMessages::path().toUtf8())
                            .replace("%INTERFACE%", ShellMessages::interface().toUtf8());
    FileReplacement file(file_.toStdString());
    const std::array pieces{std::string_view(script.constData(), std::size_t(script.size()))};
    return !file.write(pieces) && !file.commit();
}

} // namespace quorvane
