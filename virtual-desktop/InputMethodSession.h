#pragma once

#include <variant>

#include "virtual-desktop/Fcitx5Daemon.h"
#include "virtual-desktop/IBusDaemon.h"
#include "virtual-desktop/TextProgram.h"

namespace quorvane {

/// A session with an input method daemon, which has two layouts, Pinyin and Hangul. For each of them there is
/// a rule, that of applications whose class ends with its number.
class InputMethodSession : public ProgramSession {
public:
    enum Source { us, ru, pinyin, hangul };
    static constexpr Source sources[] = {us, ru, pinyin, hangul};
    using Toolkit = TextProgram::Toolkit;

    /// Starts the daemon and the program. The framework is "ibus" or "fcitx"; only the latter can be told
    /// among whom its state is shared.
    explicit InputMethodSession(const QString& framework, const QString& shareInputState = "No");
    /// The next window manager is to start without a framework, as this one did: openbox waits for ever for
    /// one that has ended.
    ~InputMethodSession();

    /// Ends the daemon and starts that of another framework; the rules are the same in its terms.
    void use(const QString& framework, const QString& shareInputState = "No");

    /// Whether this is typed with, as the daemon and the X server tell it.
    bool isSelected(Source source);
    std::optional<Source> selectedByDaemon();
    bool waitForSource(Source source);
    void selectByHand(Source source);

    /// What the daemon gives the keys to. Nobody can help a program before it has introduced itself, which
    /// programs of Qt do up to a tenth of a second after they got the focus.
    QString focusedContext();
    bool waitForContextAfter(const QString& before); ///< Another one.

    static QString textOf(Source source);
    void typeWith(Source source); ///< Keys for `textOf` it.

    /// The same into the program in front. True when exactly that was added to its text.
    bool typeInto(TextProgram& front, Source source);

    /// What both daemons can do: `start`, `end`, `kill`, `stop`, `resume`.
    template <class Action>
    void onDaemon(Action action) {
        std::visit(action, daemon);
    }

    static QString wmClass(Toolkit toolkit, Source source);

    std::variant<IBusDaemon, Fcitx5Daemon> daemon;
};

} // namespace quorvane
