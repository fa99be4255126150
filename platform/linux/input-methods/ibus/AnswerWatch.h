#pragma once

#include <chrono>
#include <optional>

namespace quorvane {

/// Tells a process that hangs from one that takes long over a call: while anything is unanswered, a process
/// that lives says something now and then, if only in answer to a question that takes it no time. It is asked
/// one before it counts as silent.
class AnswerWatch {
public:
    using Time = std::chrono::steady_clock::time_point;
    enum class Due { nothing, ping, silence };

    /// From a call that is not answered until the process counts as silent.
    static constexpr std::chrono::milliseconds patience{1000};

    /// A call, a ping among them, goes out.
    void called(Time now);

    /// One of the calls is answered, in whatever way. True when that ends a silence.
    bool answered(Time now);

    /// It said something that is no answer. True when that ends a silence.
    bool heard(Time now);

    /// What has to happen now. The process is silent once that is told.
    Due timePassed(Time now);

    /// When to ask again what is due; never while nothing is unanswered.
    std::optional<Time> nextDue() const { return nextDue_; }

private:
    enum class Stage { calm, listening, pinged, silent };

    Stage stage_ = Stage::calm;
    std::optional<Time> nextDue_;
    int unanswered_ = 0;
};

} // namespace quorvane
