#include "virtual-desktop/TextProgram.h"

#include <stdexcept>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
TextProgram::TextProgram(ProgramSession& session, Toolkit toolkit, const QString& wmClass)
    : TextProgram(session, toolkit, wmClass, {toolkit, session.folders.home(), wmClass}) {}

TextProgram::TextProgram(ProgramSession& session, Toolkit toolkit, const QString& wmClass,
                         const TextCommand& command)
    : session_(session)
    , toolkit_(toolkit)
    , wmClass_(wmClass)
    , program_(command.program, command.arguments) {
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
    return TextCommand::typed(toolkit_, program_.output());
}

} // namespace quorvane
