#pragma once

#include <chrono>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/linux/input-methods/fcitx5/Fcitx5Contexts.h"

namespace quorvane {

/// Finds out which context belongs to the application that has come to the front. It has the focus a moment
/// before or after that is told, or half a second later when the application is just opening; until then, the
/// focus is where it was, or nowhere.
class Fcitx5Focus {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Another application has come to the front.
    void activated(Time now);

    /// The application is the one that has been in front already: whatever has the focus now is its own, and
    /// what gets the focus later, unless another application turns out to be the reason.
    void expectAny();

    /// What Fcitx5 tells about all contexts.
    void seen(const std::vector<Fcitx5Context>& contexts, Time now);

    /// The contexts with the focus: one, or none, on a usual desktop.
    const std::vector<Fcitx5Context>& focused() const { return focused_; }

    /// The focused context of the application in front; null while there is none, or no certainty.
    const Fcitx5Context* inFront() const;

    /// A context has the focus that may turn out to be the one within milliseconds.
    bool isInDoubt() const;

    /// It was made after the application came to the front.
    bool isNew(const Fcitx5Context& context) const;

private:
    struct Period {
        Time since;
        std::vector<Fcitx5Context> focused;
    };

    std::optional<std::vector<Fcitx5Context>> contextsBefore(Time now) const;
    void remember(Time now);
    bool isInFront(const Fcitx5Context& context, bool hadFocus, Time now);
    void accept(Fcitx5Context context, Time now);

    std::vector<Fcitx5Context> all_, focused_; // as last seen
    std::vector<Period> periods_;              // who had the focus, when, back to where it matters

    Time activatedAt_{}, acceptedAt_{};
    std::optional<std::vector<Fcitx5Context>> focusedBefore_; // as far as that is certain
    std::vector<Fcitx5Context> allBefore_;
    std::vector<Fcitx5Context>
        neverLost_; ///< Those that have had the focus all the time since the activation.
    bool isAnyRight_ = false;
    bool isLooked_ = false;  // since it is known which application is in front
    bool isHurried_ = false; // two activations at a time: what had the focus in between is not known
    std::optional<Fcitx5Context> doubtful_;
    Time doubtfulSince_{};
    std::optional<Fcitx5Context> inFront_;
};

} // namespace quorvane
