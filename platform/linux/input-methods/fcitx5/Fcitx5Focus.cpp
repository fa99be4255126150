#include "platform/linux/input-methods/fcitx5/Fcitx5Focus.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

/// News of the X server and of Fcitx5 overtake each other by less than this. Nobody changes windows twice in
/// it by hand.
constexpr auto overtaking = 150ms;

/// An application that loses the focus has told Fcitx5 by then.
constexpr auto grace = 30ms;

/// When one activation follows so soon, the other's focus may still be to come, or be taken for that one's.
constexpr auto hurry = 50ms;

bool contains(const std::vector<Fcitx5Context>& contexts, const Fcitx5Context& wanted) {
    return std::ranges::find(contexts, wanted.uuid, &Fcitx5Context::uuid) != contexts.end();
}

bool isOfSameProgram(const Fcitx5Context& one, const Fcitx5Context& other) {
    return !one.program.empty() && one.program == other.program;
}

/// Not every program says what it is.
bool mayBeOfSameProgram(const Fcitx5Context& one, const Fcitx5Context& other) {
    return one.program.empty() || other.program.empty() || one.program == other.program;
}

} // namespace

void Fcitx5Focus::activated(Time now) {
    isHurried_ = now - std::max(activatedAt_, acceptedAt_) < hurry;
    focusedBefore_ = contextsBefore(now);
    neverLost_ = focused_;
    allBefore_ = all_;
    activatedAt_ = now;
    expectAny();
    isAnyRight_ = false;
}

/// Those that belong to the application which has been in front.
std::optional<std::vector<Fcitx5Context>> Fcitx5Focus::contextsBefore(Time now) const {
    if (activatedAt_ == Time()) { // The first activation of all: what has had the focus for a while.
        std::optional<std::vector<Fcitx5Context>> before;
        for (const auto& period : periods_) {
            if (period.since <= now - overtaking) before = period.focused;
        }
        return before;
    }
    if (!inFront_) {
        // It has none; what has had the focus all the time may be its predecessor's, or it has been in front
        // too briefly to be seen.
        const bool isNoneLeft = activatedAt_ != Time() && isLooked_ && neverLost_.empty();
        return isNoneLeft ? std::optional<std::vector<Fcitx5Context>>(std::in_place) : std::nullopt;
    }
    std::vector<Fcitx5Context> before;
    for (const auto& period : periods_) {
        if (period.since <= now - overtaking) before = period.focused;
    }
    // What else has the focus may have got it from the application that is told of only now.
    std::erase_if(before, [this](const auto& old) { return !mayBeOfSameProgram(old, *inFront_); });
    before.push_back(*inFront_);
    return before;
}

void Fcitx5Focus::expectAny() {
    isAnyRight_ = true;
    isLooked_ = false;
    doubtful_.reset();
    inFront_.reset();
}

void Fcitx5Focus::seen(const std::vector<Fcitx5Context>& contexts, Time now) {
    const auto before = std::exchange(focused_, {});
    all_ = contexts;
    std::ranges::copy_if(contexts, std::back_inserter(focused_), &Fcitx5Context::hasFocus);
    remember(now);
    std::erase_if(neverLost_, [this](const auto& context) { return !contains(focused_, context); });
    if (!inFront_) {
        const auto found = std::ranges::find_if(focused_, [&](const auto& context) {
            return isInFront(context, !isLooked_ || contains(before, context), now);
        });
        if (found != focused_.end()) accept(*found, now);
    }
    isLooked_ = true;
}

void Fcitx5Focus::remember(Time now) {
    if (!periods_.empty() && periods_.back().focused == focused_) return;
    const auto isOver = [now](const Period& next) { return next.since <= now - overtaking; };
    while (periods_.size() > 1 && isOver(periods_[1]))
        periods_.erase(periods_.begin());
    periods_.push_back({now, focused_});
}

bool Fcitx5Focus::isInFront(const Fcitx5Context& context, bool hadFocus, Time now) {
    if (isAnyRight_ && !isLooked_) return true;
    const bool isClear = !isAnyRight_ && !isHurried_;
    const bool isOld = isClear && focusedBefore_ && contains(*focusedBefore_, context);
    if (isOld && contains(neverLost_, context)) return false;
    // What was lost and is back may have been taken for another application's.
    if (isClear && focusedBefore_ && !isOld) {
        // Another window of the application that is leaving may have got the focus unseen.
        if (std::ranges::none_of(*focusedBefore_,
                                 [&](const auto& old) { return mayBeOfSameProgram(old, context); }))
            return true;
    }
    if (isClear && !isOld && !hadFocus) return true;
    if (!doubtful_ || doubtful_->uuid != context.uuid) {
        doubtful_ = context;
        doubtfulSince_ = now;
    }
    return now - doubtfulSince_ >= grace;
}

const Fcitx5Context* Fcitx5Focus::inFront() const {
    if (!inFront_) return nullptr;
    auto found = std::ranges::find(focused_, inFront_->uuid, &Fcitx5Context::uuid);
    if (found == focused_.end())
        found = std::ranges::find_if(
            focused_, [this](const auto& context) { return isOfSameProgram(context, *inFront_); });
    return found == focused_.end() ? nullptr : &*found;
}

bool Fcitx5Focus::isInDoubt() const {
    return doubtful_ && contains(focused_, *doubtful_);
}

void Fcitx5Focus::accept(Fcitx5Context context, Time now) {
    acceptedAt_ = now;
    doubtful_.reset();
    inFront_ = std::move(context);
    periods_ = {{Time::min(), focused_}}; // whatever was before it is over
}

bool Fcitx5Focus::isNew(const Fcitx5Context& context) const {
    return !contains(allBefore_, context);
}

} // namespace quorvane
