#include "linux/program/InputMethodSession.h"

#include <stdexcept>

#include <QElapsedTimer>
#include <QFile>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr std::uint8_t n = 57, i = 31, g = 42, k = 45, s = 39, space = 65, enter = 36;

const struct {
    const char *ibusEngine, *ibusID, *fcitx5InputMethod, *fcitx5ID;
    unsigned group; ///< Of the X server: input methods read Latin letters.
    std::vector<std::uint8_t> keys;
    const char* text;
} typed[] = {
    {"xkb:us::eng", "xkb:us", "keyboard-us", "xkb:us", 0, {n, i}, "ni"},
    {"xkb:ru::rus", "xkb:ru", "keyboard-ru", "xkb:ru", 1, {n, i}, "тш"},
    {"libpinyin", "ibus:libpinyin", "pinyin", "fcitx:pinyin", 0, {n, i, space}, "你"},
    {"hangul", "ibus:hangul", "hangul", "fcitx:hangul", 0, {g, k, s, space}, "한"},
};

QString program(TextProgram::Toolkit toolkit, ProgramSession& session, const QString& wmClass) {
    if (toolkit == TextProgram::Toolkit::gtk) return "zenity";
    if (toolkit == TextProgram::Toolkit::xim) return "xterm";
    // Its name becomes the class.
    auto named = session.folders.home() + "/" + wmClass;
    QFile::link(QUORVANE_TEST_INPUT_WINDOW, named);
    return named;
}

QStringList arguments(TextProgram::Toolkit toolkit, const QString& wmClass) {
    if (toolkit == TextProgram::Toolkit::gtk) return {"--entry", "--class=" + wmClass};
    if (toolkit == TextProgram::Toolkit::qt) return {wmClass};
    // Not by lines: IBus lets the key that ends one overtake the text before it. The output is xterm's.
    return {"-u8", "-class", wmClass, "-e", "sh", "-c", "stty -icanon; exec cat > /proc/$PPID/fd/1"};
}

/// The settings of IBus and its engines are installed on the machine.
void setInIBus(const QString& schema, const QString& key, const QString& value) {
    if (QProcess::execute("gsettings", {"set", "org.freedesktop.ibus." + schema, key, value}) != 0)
        throw std::runtime_error("gsettings does not set " + key.toStdString());
}

} // namespace

TextProgram::TextProgram(ProgramSession& session, Toolkit toolkit, const QString& wmClass)
    : session_(session)
    , toolkit_(toolkit)
    , wmClass_(wmClass)
    , program_(program(toolkit, session, wmClass), arguments(toolkit, wmClass)) {
    if (!waitUntil([this] { return window() != XCB_WINDOW_NONE && isInFront(); }))
        throw std::runtime_error("no window of " + wmClass.toStdString());
}

bool TextProgram::activate() {
    session_.user.activate(window());
    return waitUntil([this] { return isInFront(); });
}

bool TextProgram::isInFront() {
    const auto active = session_.user.values(session_.user.root(), "_NET_ACTIVE_WINDOW");
    return !active.empty() && active.front() == window();
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
    auto text = program_.output();
    if (toolkit_ == Toolkit::qt)
        text = text.contains("typed ") ? text.section("typed ", -1).section('\n', 0, 0) : QString();
    return text.remove(' ').remove('\n');
}

InputMethodSession::InputMethodSession(const QString& framework) {
    use(framework);
}

InputMethodSession::~InputMethodSession() {
    for (const auto* variable : {"QT_IM_MODULE", "GTK_IM_MODULE", "XMODIFIERS"})
        qunsetenv(variable);
}

void InputMethodSession::use(const QString& framework) {
    qputenv("QT_IM_MODULE", framework.toUtf8());
    qputenv("GTK_IM_MODULE", framework.toUtf8());
    qputenv("XMODIFIERS", "@im=" + framework.toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    const bool isIBus = framework == "ibus";
    if (isIBus) {
        setInIBus("general", "preload-engines", "['xkb:us::eng', 'xkb:ru::rus', 'libpinyin', 'hangul']");
        setInIBus("engine.hangul", "initial-input-mode", "hangul");
        daemon.emplace<IBusDaemon>();
    } else {
        daemon.emplace<Fcitx5Daemon>(
            Fcitx5Daemon::Settings{.inputMethods = {"keyboard-us", "keyboard-ru", "pinyin", "hangul"}});
    }
    onDaemon([](auto& each) { each.start(); });
    if (!program) startProgram();
    for (const auto source : sources) {
        for (const auto toolkit : {Toolkit::qt, Toolkit::gtk, Toolkit::xim})
            setRule(wmClass(toolkit, source).toStdString(),
                    isIBus ? typed[source].ibusID : typed[source].fcitx5ID);
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

QString InputMethodSession::focusedContext() {
    if (auto* ibus = std::get_if<IBusDaemon>(&daemon)) return ibus->currentInputContext();
    const auto answer =
        std::get<Fcitx5Daemon>(daemon).call("/controller", "org.fcitx.Fcitx.Controller1", "DebugInfo");
    for (const auto& line : answer.arguments().value(0).toString().split('\n')) {
        if (line.contains("focus:1")) return line.section('[', 1).section(']', 0, 0);
    }
    return {};
}

bool InputMethodSession::waitForContextAfter(const QString& before) {
    return waitUntil([&] {
        const auto focused = focusedContext();
        return !focused.isEmpty() && focused != before;
    });
}

void InputMethodSession::selectByHand(Source source) {
    if (auto* ibus = std::get_if<IBusDaemon>(&daemon))
        ibus->setGlobalEngine(typed[source].ibusEngine);
    else
        std::get<Fcitx5Daemon>(daemon).select(typed[source].fcitx5InputMethod);
}

QString InputMethodSession::textOf(Source source) {
    return typed[source].text;
}

void InputMethodSession::typeWith(Source source) {
    for (const auto key : typed[source].keys)
        type({key});
    type({enter});
}

bool InputMethodSession::typeInto(TextProgram& front, Source source) {
    const auto wanted = front.typed() + textOf(source);
    typeWith(source);
    const bool isTyped = waitUntil([&] { return front.typed() == wanted; });
    pauseLikeAPerson();
    return isTyped;
}

void InputMethodSession::pauseLikeAPerson() {
    constexpr qint64 quickestHand = 300; // milliseconds
    QElapsedTimer age;
    age.start();
    waitUntil([&] { return age.elapsed() > quickestHand; });
}

} // namespace quorvane
