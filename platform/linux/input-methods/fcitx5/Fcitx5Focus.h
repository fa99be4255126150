#pragma once

#include <chrono>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/linux/input-methods/fcitx5/Fcitx5Contexts.h"

namespace quorvane {

/// Finds out which context belongs to the application that has come to the front. It has the focus a moment
/// before or after that is told, or half a second later when the application is just opening; until then, the
/// focus is where it was, or nowhere.
class Fcitx5Focus {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// News of the X server and of Fcitx5 overtake each other by less than this.
    static constexpr std::chrono::milliseconds overtaking{150};

    /// Another application has come to the front, with a window of that process; 0 when that is not known.
    void activated(int process, Time now);

    /// The same application, which may run more than once, has another window in front.
    void windowActivated(int process);

    /// What gets the focus before another application is activated is in front, also if its process has no
    /// usual window, like that of a launcher.
    void expectAny() { isAnyInFront_ = true; }

    /// That context has the focus. A process of 0 may be anybody.
    void told(const std::string& context, int process, Time now);

    /// What Fcitx5 answered about all contexts; none if that is not known. With `isToldOfMost`, `told` is
    /// called for all contexts that can be told of.
    void seen(const std::optional<std::vector<Fcitx5Context>>& contexts, bool isToldOfMost, Time now);

    /// The context of the application in front that has the focus; null while there is none, or no certainty.
    const std::string* inFront(Time now) const;

    /// Whether `told` was called for the context with the focus; otherwise one has to ask about it.
    bool isTold() const { return focused_ && focused_->isTold; }

    /// Whether `told` may yet be called for the context with the focus, by another name.
    bool mayBeTold() const { return focused_ && !focused_->isTold && focused_->mayBeTold; }

    /// Nothing is known of contexts any more.
    void forget();

private:
    struct Focused {
        std::string context;
        bool isTold = false, mayBeTold = false;
        int process = 0;
        Time since;
    };

    void see(std::string context, bool mayBeTold, Time now);
    bool isInFront(const Focused& focused, Time now) const;

    std::optional<Focused> focused_;
    bool wasTold_ = false;      ///< Of any context.
    std::string focusedBefore_; ///< At the activation.
    int front_ = 0;
    bool isSameProcess_ = false; ///< It has two applications, like an office suite; the other was in front.
    std::set<int> others_;       ///< Processes of the applications that have been in front.
    Time activatedAt_{};
    bool isAnyInFront_ = true;
};

} // namespace quorvane
