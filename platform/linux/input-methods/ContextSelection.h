#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>

namespace quorvane {

/// Whose context has the focus, and has the wish reached it?
///
/// A daemon types for contexts: a text field, a window or a whole program. Each has an input method of its
/// own, or all share one. What is selected changes the context that had the focus last, which may still be
/// that of the application that was left. So a wish waits for the context of the application in front, and is
/// sent to each of them once; what such a context has afterwards is the user's choice.
///
/// Has neither a clock nor a bus: whoever owns it calls what happens. docs/input-methods.md has the picture.
class ContextSelection {
public:
    enum class State {
        free,    ///< Nothing is wished for. What the context has counts.
        seeking, ///< No context of the application in front has the focus.
        sending, ///< The daemon has been asked to select it, or will be when it has answered for another.
        missed,  ///< It has answered, and the context has something else.
        reached, ///< The context has it.
    };

    struct Calls {
        /// Has the daemon select it. Then follow `answered`, and what `look` is followed by.
        std::function<void(const std::string& inputMethod)> select;
        /// Has the daemon asked which context has the focus. Then follows `seen` or `seenNone`.
        std::function<void()> look;
        /// The daemon has not selected it for the context that it was to have; it is wished for no more.
        std::function<void(const std::string& inputMethod)> refused;
    };

    static constexpr int unknownProcess = 0;
    static constexpr int anyProcess = -1; ///< The context is everybody's.

    struct Context {
        std::string id; ///< No two have the same.
        int process = unknownProcess;
    };

    /// An application, and the process that its window in front is of.
    struct Application {
        std::string identifier;
        int process = unknownProcess;

        bool operator<(const Application& other) const {
            return std::tie(identifier, process) < std::tie(other.identifier, other.process);
        }
    };

    explicit ContextSelection(Calls calls);

    State state() const { return wish_.state; }

    /// What is wished for, else what the context has. None from an activation until that is known, unless it
    /// is what the application had when it was left.
    const std::optional<std::string>& current() const { return current_; }

    /// All looks were in vain: the application takes no text from the daemon.
    bool isWithoutContext() const;

    /// Another application is in front; a wish for it follows at once, or not at all. What was wished for
    /// when it was left is what it still has, and is wished for again: so coming back is no selection.
    /// Without a context it would have `layout`.
    void activated(const Application& application, const std::string& layout);

    /// It has another window in front, of that process.
    void windowActivated(int process);

    /// The activation is some time ago: what has the focus now is not of the application that was left.
    void settled();
    static constexpr std::chrono::milliseconds settling{150};

    void select(const std::string& inputMethod);

    /// The daemon tells that this context has the focus, and what it is typed with, whenever either changes.
    void told(const Context& context, const std::string& inputMethod);

    /// A context that nothing is told of has the focus; with `mayBeTold` something may yet be, by another
    /// name.
    void seen(const std::string& id, const std::string& inputMethod, bool mayBeTold = false);

    /// No such context has the focus. The input method is that of the one that had it last, if no context has
    /// the focus now.
    void seenNone(const std::optional<std::string>& inputMethod = {});

    /// The daemon has done what it was asked to, or has not.
    void answered(bool isAccepted);

    /// Somebody may have changed something of which nothing is told.
    void mayHaveChanged();

    /// When to call `lookAgain`, from the last look or activation on; none when nothing is open.
    std::optional<std::chrono::milliseconds> nextLook() const;
    void lookAgain();

    /// The daemon does not answer: what was asked of it will not be.
    void giveUp();

    /// Another process is the daemon now.
    void forget();

private:
    struct Wish {
        State state = State::free;
        std::string inputMethod;
        bool hasContext = false; ///< Some context has had it, now or when the application was left.
        std::string target = {}; ///< The context for which it was last sent.
        int sent = 0;            ///< How often, for the target.
        std::set<std::string> contexts = {}; ///< They have had it.
    };
    struct Focused {
        Context context;
        std::string inputMethod;
        bool isTold = true;
        bool mayBeTold = false;
    };
    struct Front {
        Application application;
        std::string focusedBefore;    ///< The context that the application before had in the focus.
        bool isOfSameProcess = false; ///< As the application before, as with an office suite.
        bool isSettled = false;
        bool isAnybody = false; ///< Also a launcher, which is no application in front.
    };
    struct Sent {
        std::string inputMethod, target;
    };
    struct Left {
        std::string inputMethod;
        bool hasContext;
    };

    void remember();
    void recall(const std::string& layout);
    bool isInFront() const;
    void consider();
    void send();
    void reach();
    void take(const std::string& inputMethod);
    bool isCertain() const;

    Calls calls_;
    Wish wish_;
    std::optional<std::string> current_;
    std::optional<Focused> focused_;
    Front front_{.application = {}, .focusedBefore = {}, .isSettled = true, .isAnybody = true};
    Sent sent_;                        ///< The last one, until a context has it.
    bool isUnderWay_ = false;          ///< It is not answered yet, and nothing else is sent.
    std::optional<std::size_t> looks_; ///< Since there was something to look for, if there was.
    std::set<int> others_;             ///< Processes of applications that have been in front.
    std::map<Application, Left> left_;
};

} // namespace quorvane
