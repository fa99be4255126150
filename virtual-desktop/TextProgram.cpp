#include "virtual-desktop/TextProgram.h"

#include <stdexcept>

#include <QFile>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

QString program(TextProgram::Toolkit toolkit, ProgramSession& session, const QString& wmClass) {
    if (toolkit == TextProgram::Toolkit::gtk) return "zenity";
    if (toolkit == TextProgram::Toolkit::xim) return "xterm";
    // Its name becomes the class.
    auto named = session.folders.home() + "/" + wmClass;
    QFile::link(QUORVANE_TEXT_WINDOW, named);
    return named;
}

QStringList arguments(TextProgram::Toolkit toolkit, const QString& wmClass) {
    if (toolkit == TextProgram::Toolkit::gtk) return {"--entry", "--class=" + wmClass};
    if (toolkit == TextProgram::Toolkit::qt) return {wmClass};
    // Not by lines: IBus lets the key that ends one overtake the text before it. The output is xterm's.
    return {"-u8",
            "-class",
            wmClass,
            "-e",
            "sh",
            "-c",
            "stty -icanon; exec > /proc/$PPID/fd/1; echo 'shown '; exec cat"};
}

} // namespace

TextProgram::TextProgram(ProgramSession& session, Toolkit toolkit, const QString& wmClass)
    : session_(session)
    , toolkit_(toolkit)
    , wmClass_(wmClass)
    , program_(program(toolkit, session, wmClass), arguments(toolkit, wmClass)) {
    if (!waitUntil([this] { return isInFront(); }))
        throw std::runtime_error("no window of " + wmClass.toStdString());
}

bool TextProgram::activate() {
    session_.user.activate(window());
    return waitUntil([this] { return isInFront(); });
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
    return text.remove("shown ").remove(' ').remove('\n');
}

} // namespace quorvane
