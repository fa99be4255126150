#pragma once

#include <variant>

#include "linux/program/ProgramSession.h"
#include "virtual-desktop/Fcitx5Daemon.h"
#include "virtual-desktop/IBusDaemon.h"

namespace quorvane {

/// What programs that are started from now on find in their environment: "ibus" or "fcitx".
void setInputMethodFramework(const QString& framework);

/// A real program that somebody types into, in the way of its toolkit.
class TextProgram {
public:
    enum class Toolkit { qt, gtk, xim };

    /// Its window has come when this returns.
    TextProgram(ProgramSession& session, Toolkit toolkit, const QString& wmClass);

    xcb_window_t window(); ///< None when it is gone.
    bool activate();       ///< Waits until its window is in front.

    bool waitUntilShown(); ///< It takes keys then. Programs of Qt tell.

    /// The text it has got so far, without spaces. Programs of GTK tell at the end of the line, and leave.
    QString typed();
    bool waitForTyped(const QString& text);

private:
    ProgramSession& session_;
    Toolkit toolkit_;
    QString wmClass_;
    QString file_; ///< What a terminal got.
    TestProgram program_;
};

/// A session with an input method daemon, which has two layouts, Pinyin and Hangul. For each of them there is
/// a rule, that of applications whose class ends with its number.
class InputMethodSession : public ProgramSession {
public:
    enum Source { us, ru, pinyin, hangul };
    static constexpr Source sources[] = {us, ru, pinyin, hangul};
    using Toolkit = TextProgram::Toolkit;

    /// Starts the daemon and the program.
    explicit InputMethodSession(const QString& framework);

    /// Ends the daemon and starts that of another framework; the rules are the same in its terms.
    void use(const QString& framework);

    /// Whether this is typed with, as the daemon and the X server tell it.
    bool isSelected(Source source);
    bool waitForSource(Source source);

    void typeWith(Source source); ///< Keys for `textOf` it.
    static QString textOf(Source source);

    struct Launch {
        QString typed;
        std::int64_t readyAfter = 0; ///< Milliseconds from its window to its source.
    };
    /// Launches a program of Qt that has a rule for that source, types into it as soon as it has got that,
    /// and closes it.
    Launch launchAndType(Source source);

    void selectByHand(Source source);

    /// What both daemons can do: `start`, `end`, `kill`, `stop`, `resume`.
    template <class Action>
    void onDaemon(Action action) {
        std::visit(action, daemon);
    }

    static QString wmClass(Toolkit toolkit, Source source);

    std::variant<IBusDaemon, Fcitx5Daemon> daemon;

private:
    void startDaemon(const QString& framework);
    void setRules();
};

} // namespace quorvane
