#include "platform/linux/input-methods/ibus/AnswerWatch.h"

#include <utility>

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds beforePing{90};

} // namespace

void AnswerWatch::called(Time now) {
    ++unanswered_;
    if (stage_ != Stage::calm) return;
    stage_ = Stage::listening;
    nextDue_ = now + beforePing;
}

bool AnswerWatch::answered(Time now) {
    --unanswered_;
    return heard(now);
}

bool AnswerWatch::heard(Time now) {
    const bool wasSilent = stage_ == Stage::silent;
    stage_ = unanswered_ > 0 ? Stage::listening : Stage::calm;
    nextDue_ = unanswered_ > 0 ? std::optional(now + beforePing) : std::nullopt;
    return wasSilent;
}

AnswerWatch::Due AnswerWatch::timePassed(Time now) {
    if (!nextDue_ || now < *nextDue_) return Due::nothing;
    if (stage_ == Stage::listening) {
        stage_ = Stage::pinged;
        nextDue_ = now + (patience - beforePing);
        return Due::ping;
    }
    stage_ = Stage::silent;
    nextDue_.reset();
    return Due::silence;
}

} // namespace quorvane
