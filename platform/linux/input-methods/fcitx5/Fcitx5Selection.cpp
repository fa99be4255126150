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

/// What is selected for an application that comes to the front is known by then; what comes later is not for
/// its contexts alone.
constexpr auto decision = 100ms;

// A process number is used again some time: these are only too many programs that have ended.
constexpr std::size_t mostApplications = 500;

constexpr milliseconds retries[] = {10ms, 20ms, 50ms, 200ms};

} // namespace

bool Fcitx5Selection::Answer::isFocusNowhere() const {
    return contexts && std::ranges::none_of(*contexts, &Fcitx5Context::hasFocus);
}

void Fcitx5Selection::activated(const Application& application, const std::string& layout, Time now) {
    remember();
    front_ = application;
    focus_.activated(application.process, now);
    recall(layout);
    activatedAt_ = now;
    target_.clear();
    std::erase_if(strays_, [now](const auto& stray) { return now >= stray.second; });
    if (!selected_.empty()) strays_[std::exchange(selected_, {})] = now + Fcitx5Focus::overtaking;
    const auto* context = focus_.inFront(now);
    if (context && focus_.isTold())
        look(*context, toldInputMethod_, now);
    else
        search(now);
}

void Fcitx5Selection::remember() {
    if (left_.size() >= mostApplications) left_.clear();
    if (front_.process != 0 && wish_ && !areShared_) {
        served_.merge(recalled_);
        left_[front_] = {*wish_, served_};
    } else {
        left_.erase(front_);
    }
}

void Fcitx5Selection::recall(const std::string& layout) {
    wish_.reset();
    current_.reset();
    recalled_.clear();
    seen_.clear();
    const auto left = left_.find(front_);
    if (left == left_.end()) return;
    const auto& [wish, contexts] = left->second;
    if (contexts.empty() && wish != layout) return;
    wish_ = current_ = wish;
    recalled_ = contexts;
    served_.clear();
    tries_ = 0;
}

void Fcitx5Selection::select(const std::string& inputMethod, Time now) {
    recalled_.clear();
    wish_ = current_ = inputMethod;
    served_.clear();
    target_.clear();
    tries_ = 0;
    if (now > activatedAt_ + decision) focus_.expectAny();
    if (const auto* context = focus_.inFront(now)) {
        target_ = *context;
        ask(inputMethod);
    } else if (!isSearching_ || isWithoutContext()) {
        search(now);
    }
}

void Fcitx5Selection::windowActivated(int process, Time now) {
    focus_.windowActivated(process);
    mayHaveChanged(now);
}

void Fcitx5Selection::mayHaveChanged(Time now) {
    const auto* context = focus_.inFront(now);
    if (context && focus_.isTold())
        look(*context, toldInputMethod_, now);
    else if (isUnderWay())
        mustAskAgain_ = true;
    else
        ask();
}

void Fcitx5Selection::ask(const std::string& inputMethod) {
    dueAt_.reset();
    mustAskAgain_ = false;
    if (!inputMethod.empty()) selected_ = inputMethod;
    calls_.ask(++asked_, inputMethod);
}

void Fcitx5Selection::search(Time now) {
    isSearching_ = true;
    searchingSince_ = now;
    searches_ = 0;
    firstThatCounts_ = asked_ + 1;
    ask();
}

void Fcitx5Selection::searchAgain(Time now) {
    const auto elapsed = now - searchingSince_;
    if (searches_ < std::size(firstSearches))
        dueAt_ = now + firstSearches[searches_++];
    else if (elapsed < closeSearchUntil)
        dueAt_ = now + closeSearch;
    else if (elapsed < looseSearchUntil)
        dueAt_ = now + looseSearch;
}

void Fcitx5Selection::told(const Fcitx5ContextNews::News& news, Time now) {
    const auto* untold = focus_.mayBeTold() ? focus_.inFront(now) : nullptr;
    const auto before = untold ? *untold : std::string();
    focus_.told(news.context, news.process, now);
    toldInputMethod_ = news.inputMethod;
    askedBeforeTold_ = asked_;
    const auto* context = focus_.inFront(now);
    if (!context) return;
    if (untold) { // Now it is known by another name.
        if (target_ == before) target_ = *context;
        if (served_.contains(before)) served_.insert(*context);
    }
    look(*context, news.inputMethod, now);
}

void Fcitx5Selection::answered(unsigned number, const Answer& answer, Time now) {
    if (number <= answered_ || number > asked_) return;
    answered_ = number;
    if (number < firstThatCounts_) return;
    if (number > askedBeforeTold_) { // Else the news may be newer.
        focus_.seen(answer.contexts, answer.isToldOfMost, now);
        // A context that Fcitx5 has taken the focus from is told of no more. Its program still has the keys,
        // and what is selected reaches it.
        if (focus_.isTold() && answer.isFocusNowhere() && !answer.inputMethod.empty())
            toldInputMethod_ = answer.inputMethod;
    }
    const auto* context = focus_.inFront(now);
    if (context)
        look(*context, focus_.isTold() ? toldInputMethod_ : answer.inputMethod, now);
    else if (isSearching_)
        searchAgain(now);
    if (mustAskAgain_ && !isUnderWay()) ask();
}

void Fcitx5Selection::look(const std::string& context, const std::string& inputMethod, Time now) {
    if (std::exchange(isSearching_, false)) dueAt_.reset();
    if (recalled_.erase(context) > 0 && wish_ && inputMethod != *wish_) {
        areShared_ = true;
        left_.clear();
    }
    const bool isSeenAgain = std::exchange(seen_, context) == context;
    // Nobody selected anything here: what was selected elsewhere has arrived late.
    if (!wish_ && isSeenAgain && current_ != inputMethod && isStray(inputMethod, now)) wish_ = current_;
    if (!wish_) {
        tellCurrent(inputMethod);
    } else if (inputMethod == *wish_) {
        served_.insert(context);
        tries_ = 0;
        dueAt_.reset();
        // One that nothing was told of may be that of the application that was left.
        const auto certain = activatedAt_ + Fcitx5Focus::overtaking;
        if (!focus_.isTold() && now < certain) dueAt_ = certain;
    } else if (served_.contains(context) && !isStray(inputMethod, now)) { // the user's
        wish_.reset();
        tellCurrent(inputMethod);
    } else if (std::exchange(target_, context) != context) {
        tries_ = 0;
        ask(*wish_);
    } else if (!isUnderWay() && !dueAt_) {
        tryAgain(inputMethod, now);
    }
}

void Fcitx5Selection::tryAgain(const std::string& inputMethod, Time now) {
    if (tries_ < std::size(retries)) {
        dueAt_ = now + retries[tries_++];
        return;
    }
    const auto refused = *std::exchange(wish_, std::nullopt);
    tellCurrent(inputMethod);
    calls_.refused(refused);
}

bool Fcitx5Selection::isStray(const std::string& inputMethod, Time now) const {
    // A selection under way changes the context that has the focus when it arrives.
    const auto stray = strays_.find(inputMethod);
    return stray != strays_.end() && now < stray->second;
}

void Fcitx5Selection::tellCurrent(const std::string& inputMethod) {
    current_.reset();
    if (!inputMethod.empty()) current_ = inputMethod;
}

void Fcitx5Selection::timePassed(Time now) {
    if (!dueAt_ || now < *dueAt_) return;
    const bool isRetry = tries_ > 0 && wish_;
    ask(isRetry ? *wish_ : std::string());
}

void Fcitx5Selection::giveUp() {
    current_.reset();
    wish_.reset();
    target_.clear();
    dueAt_.reset();
    isSearching_ = false;
    mustAskAgain_ = false;
    answered_ = asked_;
}

void Fcitx5Selection::forget() {
    giveUp();
    focus_.forget();
    left_.clear();
    areShared_ = false;
}

} // namespace quorvane
