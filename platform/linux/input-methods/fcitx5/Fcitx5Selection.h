#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/linux/input-methods/fcitx5/Fcitx5ContextNews.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Focus.h"

namespace quorvane {

/// Brings a wish to the right contexts: those of the application in front, each when it first gets the focus,
/// until the user selects something else. Fcitx5 has an input method for each context and changes that of the
/// one that had the focus last.
///
/// Most contexts are told of. The others are asked for, again and again, after an activation: closely for 1.5
/// seconds, which a program needs to open, and loosely for ten, since an application that takes no text from
/// Fcitx5 never gets one. What is found at once is asked for a second time, when it cannot be the left
/// application's any more. After that, only news make this look again.
class Fcitx5Selection {
public:
    using Time = Fcitx5Focus::Time;

    /// What Fcitx5 answers at one time. Input methods have Fcitx5's own names here.
    struct Answer {
        std::optional<std::vector<Fcitx5Context>> contexts; ///< None if they cannot be known.
        bool isToldOfMost = false;                          ///< News come of all contexts that use D-Bus.
        std::string inputMethod; ///< Of the context that had the focus last; empty when there is none.

        bool isFocusNowhere() const;
    };

    struct Calls {
        /// Selects an input method, unless that is empty, and then asks. `answered` follows, with the number.
        std::function<void(unsigned number, const std::string& inputMethod)> ask;

        /// The context is the right one, but Fcitx5 does not give it that input method.
        std::function<void(const std::string& inputMethod)> refused;
    };

    explicit Fcitx5Selection(Calls calls) : calls_(std::move(calls)) {}

    /// An application, and the process that its window in front is of; 0 when that is not known.
    struct Application {
        std::string identifier;
        int process = 0;

        bool operator==(const Application&) const = default;
        bool operator<(const Application& other) const {
            return std::tie(identifier, process) < std::tie(other.identifier, other.process);
        }
    };

    /// What is wished for, else what Fcitx5 told; none from an activation until then, unless the application
    /// is known.
    const std::optional<std::string>& current() const { return current_; }

    /// The application in front has got no context, and may never get one.
    bool isWithoutContext() const { return isSearching_ && !dueAt_ && !isUnderWay(); }

    /// Another application has come to the front; a wish for it follows at once, or not at all. What was
    /// wished for when it was left is what it still has, and is wished for again: whoever finds it selected
    /// does not select it. `layout` is what is typed where there is no context.
    void activated(const Application& application, const std::string& layout, Time now);

    /// A wish for the application in front.
    void select(const std::string& inputMethod, Time now);

    /// The application has another window in front, of that process.
    void windowActivated(int process, Time now);

    void told(const Fcitx5ContextNews::News& news, Time now);
    void answered(unsigned number, const Answer& answer, Time now);

    /// Somebody may have changed the input method, and nothing may tell of it.
    void mayHaveChanged(Time now);

    void timePassed(Time now);

    /// When to call `timePassed`; none while nothing is to be done.
    std::optional<Time> nextDue() const { return dueAt_; }

    /// Fcitx5 does not answer: what was asked and wished for will not be.
    void giveUp();

    /// Another process is Fcitx5 now.
    void forget();

private:
    /// What an application was typed with that was left.
    struct Left {
        std::string wish;
        std::set<std::string> contexts; ///< Those that had it; none for an application that has no context.
    };

    bool isUnderWay() const { return answered_ != asked_; }
    void remember();
    void recall(const std::string& layout);
    void ask(const std::string& inputMethod = {});
    void search(Time now);
    void searchAgain(Time now);
    void look(const std::string& context, const std::string& inputMethod, Time now);
    bool isStray(const std::string& inputMethod, Time now) const;
    void tellCurrent(const std::string& inputMethod);
    void tryAgain(const std::string& inputMethod, Time now);

    Calls calls_;
    Fcitx5Focus focus_;
    std::optional<std::string> current_, wish_;
    Application front_;
    std::map<Application, Left> left_;
    std::set<std::string> recalled_; ///< Contexts that had the wish when the application was left.
    bool areShared_ = false;         ///< Contexts change with one another: nothing can be recalled.
    Time activatedAt_{};
    std::string toldInputMethod_;        ///< Of the context that was told of last.
    std::set<std::string> served_;       ///< Contexts that have had what is wished for.
    std::string seen_;                   ///< The context that was last looked at, since the activation.
    std::string target_;                 ///< The context for which it was last selected.
    std::string selected_;               ///< What was selected last.
    std::map<std::string, Time> strays_; ///< What was selected for applications that were left, and until
                                         ///< when it may still arrive.

    bool isSearching_ = false;
    Time searchingSince_{};
    std::size_t searches_ = 0, tries_ = 0;
    std::optional<Time> dueAt_;

    unsigned asked_ = 0, answered_ = 0; ///< The last questions' numbers.
    unsigned firstThatCounts_ = 0;
    unsigned askedBeforeTold_ = 0;
    bool mustAskAgain_ = false;
};

} // namespace quorvane
