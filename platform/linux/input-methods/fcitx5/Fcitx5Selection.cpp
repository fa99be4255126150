#include "platform/linux/input-methods/fcitx5/Fcitx5Selection.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

constexpr milliseconds firstSearches[] = {1ms, 2ms, 4ms, 8ms}; // between programs that run
constexpr auto closeSearch = 10ms, closeSearchUntil = 1500ms;
constexpr auto looseSearch = 100ms, looseSearchUntil = 10000ms;

constexpr milliseconds retries[] = {1ms, 10ms, 50ms, 200ms};

/// A program may give the focus to another of its contexts right after: often at once, later only while it is
/// opening.
constexpr milliseconds settlingLooks[] = {5ms, 10ms, 20ms, 40ms, 80ms, 160ms, 320ms, 640ms};
constexpr std::size_t settlingLooksOfOpenPrograms = 5;

constexpr auto overtaking = 50ms; // news of the X server and of Fcitx5

constexpr milliseconds unseeingTimes[] = {0ms, 150ms, 300ms, 600ms}; // from the activation

} // namespace

bool Fcitx5Selection::isWithoutContext() const {
    return phase_ == Phase::searching && !dueAt_ && !isUnderWay();
}

void Fcitx5Selection::activated(Time now) {
    focus_.activated(now);
    keepTarget(now);
    wish_.reset();
    current_.reset();
    search(now);
}

void Fcitx5Selection::select(const std::string& inputMethod, Time now) {
    wish_ = current_ = inputMethod;
    const bool isSearching = phase_ == Phase::searching;
    if (isSearching && !isWithoutContext()) return;
    if (!isSearching) focus_.expectAny();
    search(now);
}

void Fcitx5Selection::mayHaveChanged() {
    if (isUnderWay())
        mustAskAgain_ = true;
    else
        ask();
}

void Fcitx5Selection::ask(const std::string& inputMethod) {
    dueAt_.reset();
    mustAskAgain_ = false;
    hasSelected_ = !inputMethod.empty();
    calls_.ask(++asked_, inputMethod);
}

void Fcitx5Selection::search(Time now) {
    phase_ = Phase::searching;
    phaseSince_ = now;
    step_ = 0;
    firstThatCounts_ = asked_ + 1;
    ask();
}

void Fcitx5Selection::answered(unsigned number, const Answer& answer, Time now) {
    if (number <= answered_ || number > asked_) return;
    answered_ = number;
    if (number < firstThatCounts_) return;
    if (answer.contexts) {
        focus_.seen(*answer.contexts, now);
        std::erase_if(kept_, [&](const auto& kept) {
            return !std::ranges::count(*answer.contexts, kept.first, &Fcitx5Context::uuid);
        });
        lookInPhase(answer.inputMethod, now);
    } else if (phase_ == Phase::resting) {
        rest(answer.inputMethod);
    } else {
        applyUnseeing(answer.inputMethod, now);
    }
    if (mustAskAgain_ && !isUnderWay()) ask();
}

void Fcitx5Selection::lookInPhase(const std::string& inputMethod, Time now) {
    if (phase_ == Phase::resting) {
        if (focus_.focused().empty()) return; // what Fcitx5 tells is of the past
        const auto before = std::exchange(target_, focus_.focused().front().uuid);
        if (target_ == before || !isDisplaced(inputMethod)) keep(inputMethod);
        return rest(inputMethod);
    }
    if (phase_ == Phase::settling) return settleFurther(inputMethod, now);
    const auto* context = focus_.inFront();
    if (!context) {
        if (phase_ == Phase::searching) return searchAgain(now);
        // What Fcitx5 tells is of the context that has lost the focus since.
        const bool isFulfilled = focus_.focused().empty() && inputMethod == *wish_;
        return isFulfilled ? settle(now) : search(now);
    }
    if (phase_ == Phase::selecting && context->uuid == target_) return selectAgain(inputMethod, now);
    found(*context, inputMethod, now);
}

void Fcitx5Selection::searchAgain(Time now) {
    const auto elapsed = now - phaseSince_;
    if (step_ < std::size(firstSearches))
        dueAt_ = now + firstSearches[step_++];
    else if (elapsed < closeSearchUntil || focus_.isInDoubt())
        dueAt_ = now + closeSearch;
    else if (elapsed < looseSearchUntil)
        dueAt_ = now + looseSearch;
}

void Fcitx5Selection::found(const Fcitx5Context& context, const std::string& inputMethod, Time now) {
    target_ = context.uuid;
    if (!wish_ && !isDisplaced(inputMethod)) {
        keep(inputMethod);
        return rest(inputMethod);
    }
    if (!wish_) wish_ = current_ = kept_.at(target_);
    selectedAt_ = now;
    inputMethodOfTarget_ = inputMethod;
    if (inputMethod == *wish_) return settle(now);
    wished_.insert(*wish_);
    phase_ = Phase::selecting;
    step_ = 0;
    ask(*wish_);
}

void Fcitx5Selection::selectAgain(const std::string& inputMethod, Time now) {
    if (inputMethod == *wish_) return settle(now);
    const bool isRefused = step_ == std::size(retries);
    if (inputMethod == inputMethodOfTarget_ && !isRefused) {
        if (!hasSelected_) return ask(*wish_); // now that it is sure that the context still has the focus
        dueAt_ = now + retries[step_++];
        return;
    }
    const auto wish = *wish_;
    rest(inputMethod);
    if (isRefused) calls_.refused(wish);
}

void Fcitx5Selection::settle(Time now) {
    phase_ = Phase::settling;
    phaseSince_ = now;
    step_ = 0;
    dueAt_ = now + settlingLooks[step_++];
}

void Fcitx5Selection::settleFurther(const std::string& inputMethod, Time now) {
    const auto* context = focus_.inFront();
    if (context && inputMethod != *wish_) {
        if (context->uuid == target_) { // the user has changed it
            keep(inputMethod);
            return rest(inputMethod);
        }
        return found(*context, inputMethod, now);
    }
    const bool isOpening = context && focus_.isNew(*context);
    if (step_ < (isOpening ? std::size(settlingLooks) : settlingLooksOfOpenPrograms)) {
        dueAt_ = now + settlingLooks[step_++];
        return;
    }
    keepTarget(now);
    rest(*wish_);
}

/// Without any idea of the contexts, the wish is repeated while programs use to open.
void Fcitx5Selection::applyUnseeing(const std::string& inputMethod, Time now) {
    const auto elapsed = now - phaseSince_;
    if (wish_ && !hasSelected_) {
        phase_ = Phase::selecting;
        return ask(*wish_);
    }
    const auto* next = std::ranges::find_if(unseeingTimes, [&](auto time) { return time > elapsed; });
    if (next != std::end(unseeingTimes)) {
        dueAt_ = phaseSince_ + *next;
        return;
    }
    const auto wish = wish_;
    rest(inputMethod);
    if (wish && *wish != inputMethod) calls_.refused(*wish);
}

void Fcitx5Selection::rest(const std::string& inputMethod) {
    phase_ = Phase::resting;
    dueAt_.reset();
    wish_.reset();
    current_.reset();
    if (!inputMethod.empty()) current_ = inputMethod;
}

void Fcitx5Selection::keep(const std::string& inputMethod) {
    const auto [kept, isNew] = kept_.try_emplace(target_, inputMethod);
    if (isNew || kept->second == inputMethod) return;
    kept_ = {{target_, inputMethod}};
    wished_.clear();
}

/// The wish becomes what the context has. But if the focus goes on right after, the context may have been
/// that of the application which is told of only now.
void Fcitx5Selection::keepTarget(Time now) {
    if (phase_ != Phase::selecting && phase_ != Phase::settling) return;
    if (now - selectedAt_ >= overtaking)
        kept_[target_] = *wish_;
    else if (!kept_.contains(target_) || !wished_.contains(inputMethodOfTarget_))
        kept_[target_] = inputMethodOfTarget_;
}

bool Fcitx5Selection::isDisplaced(const std::string& inputMethod) const {
    const auto kept = kept_.find(target_);
    return !isShared_ && kept != kept_.end() && kept->second != inputMethod && wished_.contains(inputMethod);
}

void Fcitx5Selection::timePassed(Time now) {
    if (!dueAt_ || now < *dueAt_) return;
    ask();
}

void Fcitx5Selection::forget() {
    focus_ = {};
    phase_ = Phase::resting;
    current_.reset();
    wish_.reset();
    dueAt_.reset();
    mustAskAgain_ = false;
    answered_ = asked_;
}

} // namespace quorvane
