#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/linux/input-methods/fcitx5/Fcitx5Focus.h"

namespace quorvane {

/// Brings a wish to the right context. Fcitx5 has an input method for each context, changes that of the one
/// that had the focus last, and tells nobody of either: so it is asked, again and again, until the context of
/// the application in front has the focus, and whenever somebody says that it is worth asking.
///
/// An application that takes no text from Fcitx5 never gets a context. It is waited for closely for 1.5
/// seconds, which a program needs to open, and loosely for ten; after that, only news make this look again.
class Fcitx5Selection {
public:
    using Time = Fcitx5Focus::Time;

    /// What Fcitx5 tells at one time. Input methods have Fcitx5's own names here.
    struct Answer {
        std::optional<std::vector<Fcitx5Context>> contexts; ///< None if they cannot be known.
        std::string inputMethod; ///< Of the context that had the focus last; empty when there is none.
    };

    struct Calls {
        /// Selects an input method, unless that is empty, and then asks. `answered` follows, with the number.
        std::function<void(unsigned number, const std::string& inputMethod)> ask;

        /// The context is the right one, but Fcitx5 does not give it that input method.
        std::function<void(const std::string& inputMethod)> refused;
    };

    explicit Fcitx5Selection(Calls calls) : calls_(std::move(calls)) {}

    /// What is wished for, else what Fcitx5 told; none from an activation until then.
    const std::optional<std::string>& current() const { return current_; }

    /// The application in front has got no context, and may never get one.
    bool isWithoutContext() const;

    /// Another application has come to the front; a wish for it follows at once, or not at all.
    void activated(Time now);

    /// A wish for the application in front.
    void select(const std::string& inputMethod, Time now);

    /// Somebody may have changed the input method, or the window.
    void mayHaveChanged();

    /// Whether the user wants all programs to have the same input method at any time.
    void setShared(bool isShared) { isShared_ = isShared; }

    void answered(unsigned number, const Answer& answer, Time now);
    void timePassed(Time now);

    /// When to call `timePassed`; none while nothing is to be done.
    std::optional<Time> nextDue() const { return dueAt_; }

    /// Fcitx5 is gone, or has been silent for so long that all may have changed. Answers to earlier questions
    /// do not count.
    void forget();

private:
    enum class Phase { resting, searching, selecting, settling };

    bool isUnderWay() const { return answered_ != asked_; }
    void ask(const std::string& inputMethod = {});
    void search(Time now);
    void searchAgain(Time now);
    void lookInPhase(const std::string& inputMethod, Time now);
    void found(const Fcitx5Context& context, const std::string& inputMethod, Time now);
    void selectAgain(const std::string& inputMethod, Time now);
    void settle(Time now);
    void settleFurther(const std::string& inputMethod, Time now);
    void applyUnseeing(const std::string& inputMethod, Time now);
    void rest(const std::string& inputMethod);
    void keep(const std::string& inputMethod);
    void keepTarget(Time now);
    bool isDisplaced(const std::string& inputMethod) const;

    Calls calls_;
    Fcitx5Focus focus_;
    Phase phase_ = Phase::resting;
    std::optional<std::string> current_, wish_;

    unsigned asked_ = 0, answered_ = 0; ///< The last questions' numbers.
    unsigned firstThatCounts_ = 0;
    bool hasSelected_ = false; ///< The last question, before it asked.
    bool mustAskAgain_ = false;

    std::optional<Time> dueAt_;
    Time phaseSince_{};
    std::size_t step_ = 0;            ///< In the phase.
    std::string target_;              ///< The uuid of the context that is being changed, or was.
    std::string inputMethodOfTarget_; ///< Before it was changed.
    Time selectedAt_{};               ///< When it was changed.

    // Fcitx5 knows for each context whether it has the first input method of the list or another one; which
    // other one, it knows but once. So a selection for one program changes others behind its back.
    std::map<std::string, std::string> kept_; ///< Input methods, by uuid, as the user left them.
    std::set<std::string> wished_;            ///< Since the user last changed something.
    bool isShared_ = false;
};

} // namespace quorvane
