#include "linux/program/InputMethodSession.h"

#include <stdexcept>

#include <QElapsedTimer>
#include <QFile>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr std::uint8_t n = 57, i = 31, g = 42, k = 45, s = 39, space = 65, enter = 36;

struct Typed {
    const char* ibusEngine;
    const char* fcitx5InputMethod;
    unsigned group; ///< Of the X server: input methods read Latin letters.
    std::vector<std::uint8_t> keys;
    const char* text;
};
const Typed typed[] = {
    {"xkb:us::eng", "keyboard-us", 0, {n, i}, "ni"},
    {"xkb:ru::rus", "keyboard-ru", 1, {n, i}, "тш"},
    {"libpinyin", "pinyin", 0, {n, i, space}, "你"},
    {"hangul", "hangul", 0, {g, k, s, space}, "한"},
};

QString program(TextProgram::Toolkit toolkit, ProgramSession& session, const QString& wmClass) {
    if (toolkit == TextProgram::Toolkit::gtk) return "zenity";
    if (toolkit == TextProgram::Toolkit::xim) return "xterm";
    // Its name becomes the class.
    auto named = session.folders.home() + "/" + wmClass;
    QFile::link(QUORVANE_TEST_INPUT_WINDOW, named);
    return named;
}

QStringList arguments(TextProgram::Toolkit toolkit, const QString& wmClass, const QString& file) {
    if (toolkit == TextProgram::Toolkit::gtk) return {"--entry", "--class=" + wmClass};
    if (toolkit == TextProgram::Toolkit::qt) return {wmClass};
    return {
        "-u8", "-class", wmClass, "-e", "sh", "-c", "while read line; do echo $line >> " + file + "; done"};
}

QString withoutSpaces(QString text) {
    return text.remove(' ').remove('\n');
}

/// The settings of IBus and its engines are installed on the machine.
void setInIBus(const QString& schema, const QString& key, const QString& value) {
    if (QProcess::execute("gsettings", {"set", "org.freedesktop.ibus." + schema, key, value}) != 0)
        throw std::runtime_error("gsettings does not set " + key.toStdString());
}

} // namespace

void setInputMethodFramework(const QString& framework) {
    qputenv("QT_IM_MODULE", framework.toUtf8());
    qputenv("GTK_IM_MODULE", framework.toUtf8());
    qputenv("XMODIFIERS", "@im=" + framework.toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
}

TextProgram::TextProgram(ProgramSession& session, Toolkit toolkit, const QString& wmClass)
    : session_(session)
    , toolkit_(toolkit)
    , wmClass_(wmClass)
    , file_(session.folders.home() + "/typed into " + wmClass)
    , program_(program(toolkit, session, wmClass), arguments(toolkit, wmClass, "'" + file_ + "'")) {
    if (!waitUntil([this] { return window() != XCB_WINDOW_NONE; }))
        throw std::runtime_error("no window of " + wmClass.toStdString());
}

bool TextProgram::activate() {
    const auto window = this->window();
    session_.user.activate(window);
    return waitUntil([&] {
        const auto active = session_.user.values(session_.user.root(), "_NET_ACTIVE_WINDOW");
        return !active.empty() && active.front() == window;
    });
}

xcb_window_t TextProgram::window() {
    for (const auto window : session_.user.values(session_.user.root(), "_NET_CLIENT_LIST")) {
        const auto names = session_.user.texts(window, "WM_CLASS");
        if (names.size() > 1 && names[1] == wmClass_.toStdString()) return window;
    }
    return XCB_WINDOW_NONE;
}

bool TextProgram::waitUntilShown() {
    return waitUntil([this] { return program_.output().contains("shown "); });
}

QString TextProgram::typed() {
    if (toolkit_ == Toolkit::gtk) return withoutSpaces(program_.output());
    if (toolkit_ == Toolkit::qt) {
        const auto changes = program_.output().split("typed ");
        return changes.size() > 1 ? withoutSpaces(changes.back()) : QString();
    }
    QFile file(file_);
    return file.open(QFile::ReadOnly) ? withoutSpaces(QString::fromUtf8(file.readAll())) : QString();
}

bool TextProgram::waitForTyped(const QString& text) {
    return waitUntil([&] { return typed() == text; });
}

InputMethodSession::InputMethodSession(const QString& framework) {
    startDaemon(framework);
    startProgram();
    setRules();
}

void InputMethodSession::use(const QString& framework) {
    startDaemon(framework);
    setRules();
}

void InputMethodSession::startDaemon(const QString& framework) {
    setInputMethodFramework(framework);
    if (framework == "ibus") {
        setInIBus("general", "preload-engines", "['xkb:us::eng', 'xkb:ru::rus', 'libpinyin', 'hangul']");
        setInIBus("engine.hangul", "initial-input-mode", "hangul");
        daemon.emplace<IBusDaemon>();
    } else {
        daemon.emplace<Fcitx5Daemon>(
            Fcitx5Daemon::Settings{.inputMethods = {"keyboard-us", "keyboard-ru", "pinyin", "hangul"}});
    }
    onDaemon([](auto& each) { each.start(); });
}

void InputMethodSession::setRules() {
    const std::string ibus[] = {"xkb:us", "xkb:ru", "ibus:libpinyin", "ibus:hangul"};
    const std::string fcitx5[] = {"xkb:us", "xkb:ru", "fcitx:pinyin", "fcitx:hangul"};
    for (const auto source : sources) {
        for (const auto toolkit : {Toolkit::qt, Toolkit::gtk, Toolkit::xim})
            setRule(wmClass(toolkit, source).toStdString(),
                    std::holds_alternative<IBusDaemon>(daemon) ? ibus[source] : fcitx5[source]);
    }
}

QString InputMethodSession::wmClass(Toolkit toolkit, Source source) {
    return QString("Toolkit%1_%2").arg(int(toolkit)).arg(int(source));
}

bool InputMethodSession::isSelected(Source source) {
    auto* fcitx5 = std::get_if<Fcitx5Daemon>(&daemon);
    const auto selected = fcitx5 ? fcitx5->inputMethod() : std::get<IBusDaemon>(daemon).globalEngine();
    const auto* wanted = fcitx5 ? typed[source].fcitx5InputMethod : typed[source].ibusEngine;
    const bool isLayoutAlone = selected.isEmpty() && (source == us || source == ru);
    return (selected == wanted || isLayoutAlone) && group() == typed[source].group;
}

bool InputMethodSession::waitForSource(Source source) {
    return waitUntil([&] { return isSelected(source); });
}

void InputMethodSession::typeWith(Source source) {
    for (const auto key : typed[source].keys)
        type({key});
    type({enter});
}

QString InputMethodSession::textOf(Source source) {
    return typed[source].text;
}

InputMethodSession::Launch InputMethodSession::launchAndType(Source source) {
    TextProgram launched(*this, Toolkit::qt, wmClass(Toolkit::qt, source));
    QElapsedTimer age;
    if (!launched.waitUntilShown()) return {};
    age.start();
    waitForSource(source);
    const auto readyAfter = age.elapsed();
    typeWith(source);
    launched.waitForTyped(textOf(source));
    return {launched.typed(), readyAfter};
}

void InputMethodSession::selectByHand(Source source) {
    if (auto* ibus = std::get_if<IBusDaemon>(&daemon))
        ibus->setGlobalEngine(typed[source].ibusEngine);
    else
        std::get<Fcitx5Daemon>(daemon).select(typed[source].fcitx5InputMethod);
}

} // namespace quorvane
