#include "linux/program/ProgramSession.h"

#include <stdexcept>

#include "linux/support/WaitUntil.h"
#include "settings/AppRule.h"
#include "settings/Keys.h"

namespace quorvane {

TestProgram::TestProgram(const QString& program, const QStringList& arguments) {
    process_.start(program, arguments);
    if (!process_.waitForStarted()) throw std::runtime_error("does not start: " + program.toStdString());
}

TestProgram::~TestProgram() {
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    if (!waitForEnd()) process_.kill();
    process_.waitForFinished();
}

QString TestProgram::output() {
    return output_ += QString::fromUtf8(process_.readAllStandardOutput());
}

QString TestProgram::errors() {
    return errors_ += QString::fromUtf8(process_.readAllStandardError());
}

bool TestProgram::waitForEnd() {
    return waitUntil([this] { return process_.state() == QProcess::NotRunning; });
}

ProgramSession::ProgramSession(const QString& windowManager)
    : stores(LinuxUserDefaults::configFolder(), maker::bundleIdentifier) {
    const auto status =
        QProcess::execute("setxkbmap", {"-rules", "evdev", "-model", "pc105", "-layout", "us,ru,de"});
    if (status != 0) throw std::runtime_error("setxkbmap fails");
    manager.emplace(windowManager);
    bus.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
    if (!bus.waitForReadyRead()) throw std::runtime_error("dbus-daemon does not start");
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
    stores.standardUserDefaults().setBool(true, key::notNeedRemindForAutoStartAtLogin);
    stores.standardUserDefaults().synchronize();
    x_ = XConnection::open();
    keyboard_.emplace(*x_);
}

ProgramSession::~ProgramSession() {
    program.reset();
    bus.terminate();
    bus.waitForFinished();
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void ProgramSession::startProgram() {
    program.emplace(QUORVANE_PROGRAM);
    setRule("ready.when.this.is.taken", "xkb:us");
}

void ProgramSession::setRule(const std::string& application, const std::string& inputSource) {
    auto& standard = stores.standardUserDefaults();
    const bool isTaken = waitUntil([&] {
        const auto rules = shared()->objectForKey(key::autoInput);
        if (AppRule::ofApplication(rules, application).id() == inputSource) return true;
        // A program that was not ready yet has not seen the change, and writing the same again is none.
        removeRule(standard, application);
        setRuleInput(standard, application, inputSource);
        return false;
    });
    if (!isTaken) throw std::runtime_error("the program does not take the rule");
}

unsigned ProgramSession::group() {
    keyboard_->readGroup();
    return keyboard_->effectiveGroup();
}

bool ProgramSession::waitForGroup(unsigned wanted) {
    return waitUntil([&] { return group() == wanted; });
}

void ProgramSession::type(std::initializer_list<std::uint8_t> keycodes) {
    for (const auto keycode : keycodes) {
        user.press(keycode);
        user.release(keycode);
    }
}

} // namespace quorvane
