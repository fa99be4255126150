#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quorvane {

/// Which engine counts as selected, while calls are under way, others select as well, and engines die. News
/// from the daemon only say that it is worth asking: they may be older than what they seem to contradict.
class IBusSelection {
public:
    struct Calls {
        std::function<void(const std::string& engine)> set; ///< Then `setAnswered` follows.
        std::function<void()> ask;                          ///< Then `askAnswered` follows.
    };

    explicit IBusSelection(Calls calls) : calls_(std::move(calls)) {}

    /// The selected engine: the last one wished for, else what the daemon told. None before that.
    const std::optional<std::string>& current() const;

    /// The wish is not fulfilled yet.
    bool isUnderWay() const { return underWay_.has_value(); }

    /// Of several wishes while a call is under way, the last one counts.
    void select(const std::string& engine);
    void setAnswered(bool isAccepted);

    void ask();
    /// None when the daemon has no engine.
    void askAnswered(std::optional<std::string> engine);

    /// The daemon says that this engine has been selected, by whomever.
    void heard(std::string_view engine);

    /// Nobody is told when an engine dies. If there is none now, the selected one is set again.
    void restoreIfGone();

    /// The daemon is gone, with all that it knew.
    void forget();

private:
    void set(std::string engine);

    Calls calls_;
    std::optional<std::string> told_;     ///< By the daemon.
    std::optional<std::string> underWay_; ///< In a call that is not answered.
    std::optional<std::string> next_;     ///< To be set after that.
    bool isAsking_ = false;
    bool mustAskAgain_ = false; ///< There were news after the question.
    bool mustRestore_ = false;
};

} // namespace quorvane
