#include "platform/linux/SelfCheckRun.h"

#include <QApplication>

#include "control/SelfCheck.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/control/ControlService.h"
#include "platform/linux/dbus/SessionBus.h"

namespace quorvane {

int runSelfCheck(const OpenedSession& session) {
    const bool isAlone = session.instance().becomeTheOne(SingleInstance::IfAnotherRuns::leaveIt);
    if (!isAlone && session.servesOnlyOne()) {
        printLine(
            "Quorvane runs, and this desktop answers one instance at a time. End that one first, or ask it: "
            "quorvanectl status; quorvanectl doctor");
        return 0;
    }
    if (session.servesOnlyOne()) ControlService::takeName(sessionBus());
    LinuxDesktop linuxDesktop(session.start(), LinuxDesktop::Purpose::lookAround);
    SelfCheck check(linuxDesktop.desktop(), printLine, [&](const TellFact& tell) {
        const auto& report = linuxDesktop.report();
        const auto trouble = report.settingsTrouble();
        tell("system", QSysInfo::prettyProductName().toStdString() + ", " +
                           QSysInfo::currentCpuArchitecture().toStdString());
        tell("another instance", isAlone ? "none" : "runs");
        tell("sources from", report.inputSourceProvider());
        tell("settings", trouble.empty() ? "saved" : trouble);
    });
    const auto loss = session.onLost([&linuxDesktop] { linuxDesktop.application().terminate(); });
    QMetaObject::invokeMethod(
        qApp, [&check] { check.start(); }, Qt::QueuedConnection);
    return QApplication::exec();
}

} // namespace quorvane
