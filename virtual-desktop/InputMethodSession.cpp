#include "virtual-desktop/InputMethodSession.h"

#include <algorithm>

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

} // namespace

InputMethodSession::InputMethodSession(const QString& framework, const QString& shareInputState) {
    use(framework, shareInputState);
}

InputMethodSession::~InputMethodSession() {
    for (const auto* variable : {"QT_IM_MODULE", "GTK_IM_MODULE", "XMODIFIERS"})
        qunsetenv(variable);
}

void InputMethodSession::use(const QString& framework, const QString& shareInputState) {
    qputenv("QT_IM_MODULE", framework.toUtf8());
    qputenv("GTK_IM_MODULE", framework.toUtf8());
    qputenv("XMODIFIERS", "@im=" + framework.toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    const bool isIBus = framework == "ibus";
    if (isIBus) {
        IBusDaemon::setPreloadEngines({"xkb:us::eng", "xkb:ru::rus", "libpinyin", "hangul"});
        IBusDaemon::set("engine.hangul", "initial-input-mode", "hangul");
        daemon.emplace<IBusDaemon>();
    } else {
        daemon.emplace<Fcitx5Daemon>(Fcitx5Daemon::Settings{.shareInputState = shareInputState});
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

std::optional<InputMethodSession::Source> InputMethodSession::selectedByDaemon() {
    auto* fcitx5 = std::get_if<Fcitx5Daemon>(&daemon);
    const auto selected = fcitx5 ? fcitx5->inputMethod() : std::get<IBusDaemon>(daemon).globalEngine();
    const auto* found = std::ranges::find_if(sources, [&](Source source) {
        return selected == (fcitx5 ? typed[source].fcitx5InputMethod : typed[source].ibusEngine);
    });
    return found == std::end(sources) ? std::nullopt : std::optional(*found);
}

bool InputMethodSession::isSelected(Source source) {
    const auto selected = selectedByDaemon();
    const bool isLayoutAlone = !selected && (source == us || source == ru);
    return (selected == source || isLayoutAlone) && group() == typed[source].group;
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

} // namespace quorvane
