#include "platform/linux/input-methods/ContextSelection.h"

#include <iterator>
#include <utility>

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

/// Looks are at once and each millisecond while programs get the focus, whose first key may follow; then
/// after longer distances, of about thirty milliseconds during the second that programs need to open; and of
/// ever more, for slow ones, up to eight seconds.
constexpr milliseconds firstDistances[] = {0ms, 1ms, 1ms, 1ms, 1ms, 1ms, 1ms, 2ms, 8ms, 16ms};
constexpr milliseconds regularDistance = 32ms;
constexpr std::size_t regularLooks = 40, mostLooks = 48;

/// What an application still has is in no hurry, and a look would keep the daemon from giving it. This one is
/// after eight milliseconds.
constexpr std::size_t firstOfThoseThatHave = 8;

milliseconds distanceOfLook(std::size_t number) {
    if (number < std::size(firstDistances)) return firstDistances[number];
    return number <= regularLooks ? regularDistance : regularDistance * (1U << (number - regularLooks));
}

// A daemon may be slower to tell than to answer. It gets an eighth of a second.
constexpr std::size_t looksBeforeSendingAgain = std::size(firstDistances);
constexpr int mostSent = 4;

// Numbers of processes are used again some time: these are only too many programs that have ended.
constexpr std::size_t mostApplications = 500;

} // namespace

ContextSelection::ContextSelection(Calls calls) : calls_(std::move(calls)) {}

// What is in front ----------------------------------------------------------------------------------------

void ContextSelection::activated(const Application& application, const std::string& layout) {
    remember();
    const auto before = front_.application.process;
    // One that has just been told of may be the new application's already.
    const bool isLeft =
        focused_ && (wish_.state == State::free || wish_.state == State::reached || !focused_->isTold);
    front_ = {.application = application,
              .focusedBefore = isLeft ? focused_->context.id : std::string(),
              .isOfSameProcess = application.process == before};
    others_.insert(before);
    others_.erase(application.process);
    recall(layout);
    looks_ = current_ ? firstOfThoseThatHave : 0;
    // What its context has is not known yet, if that may be changed by what was sent for the one before.
    if (current_ || sent_.inputMethod.empty()) consider();
}

void ContextSelection::remember() {
    if (left_.size() >= mostApplications) left_.clear();
    if (front_.application.process != unknownProcess && wish_.state != State::free)
        left_[front_.application] = {wish_.inputMethod, wish_.hasContext};
    else
        left_.erase(front_.application);
}

void ContextSelection::recall(const std::string& layout) {
    wish_ = {};
    current_.reset();
    const auto left = left_.find(front_.application);
    if (left == left_.end()) return;
    const auto& [inputMethod, hasContext] = left->second;
    if (!hasContext && inputMethod != layout) return;
    wish_ = {.state = State::seeking, .inputMethod = inputMethod, .hasContext = hasContext};
    current_ = inputMethod;
}

void ContextSelection::windowActivated(int process) {
    front_.application.process = process;
    others_.erase(process);
    looks_ = 0;
    consider();
    mayHaveChanged();
}

void ContextSelection::settled() {
    front_.isSettled = true;
    consider();
    mayHaveChanged();
}

bool ContextSelection::isInFront() const {
    if (!focused_) return false;
    const auto& [id, process] = focused_->context;
    if (process == anyProcess) return true;
    const bool isNews = front_.isAnybody || id != front_.focusedBefore;
    if (process == unknownProcess) return isNews || front_.isSettled;
    if (process == front_.application.process) return isNews || !front_.isOfSameProcess;
    return front_.isAnybody && !others_.contains(process);
}

// What has the focus --------------------------------------------------------------------------------------

void ContextSelection::told(const Context& context, const std::string& inputMethod) {
    if (focused_ && focused_->mayBeTold) { // It is the same, by its other name.
        if (wish_.target == focused_->context.id) wish_.target = context.id;
        if (wish_.contexts.contains(focused_->context.id)) wish_.contexts.insert(context.id);
    }
    focused_ = {context, inputMethod};
    consider();
}

void ContextSelection::seen(const std::string& id, const std::string& inputMethod, bool mayBeTold) {
    Context context;
    context.id = id;
    focused_ = {context, inputMethod, false, mayBeTold};
    consider();
}

/// A context that has lost the focus is told of no more. Its program still has the keys, and what is selected
/// reaches it.
void ContextSelection::seenNone(const std::optional<std::string>& inputMethod) {
    if (!focused_) return;
    if (!focused_->isTold)
        focused_.reset();
    else if (inputMethod)
        focused_->inputMethod = *inputMethod;
    consider();
}

void ContextSelection::mayHaveChanged() {
    if (!focused_ || !focused_->isTold) calls_.look();
}

// The wish ------------------------------------------------------------------------------------------------

void ContextSelection::select(const std::string& inputMethod) {
    wish_ = {.state = State::seeking, .inputMethod = inputMethod};
    current_ = inputMethod;
    // For an application that has come to the front it comes at once: later, it is for whoever has the focus.
    front_.isAnybody = front_.isSettled;
    looks_ = 0;
    consider();
}

/// All that follows from who has the focus, and from what that has.
void ContextSelection::consider() {
    const bool isFree = wish_.state == State::free;
    if (!isInFront()) {
        if (!isFree) wish_.state = State::seeking;
        return;
    }
    const auto& [context, has, isTold, mayBeTold] = *focused_;
    if (isFree)
        // One whose process has died is selected again.
        return has.empty() && current_ ? select(std::string(*current_)) : take(has);
    // What was sent for another wish, and no context is known to have, may yet arrive in this one.
    if (!sent_.inputMethod.empty() && sent_.inputMethod != wish_.inputMethod) return send();
    if (has == wish_.inputMethod) return reach();
    if (!has.empty() && wish_.contexts.contains(context.id)) return take(has);
    if (wish_.state != State::missed || wish_.target != context.id) send();
}

void ContextSelection::send() {
    const auto& context = focused_->context.id;
    if (std::exchange(wish_.target, context) != context) wish_.sent = 0;
    wish_.state = State::sending;
    if (std::exchange(isUnderWay_, true)) return;
    ++wish_.sent;
    sent_ = {wish_.inputMethod, wish_.target};
    calls_.select(wish_.inputMethod);
}

void ContextSelection::reach() {
    wish_.state = State::reached;
    wish_.hasContext = true;
    wish_.contexts.insert(focused_->context.id);
    if (!isUnderWay_) sent_ = {};
}

/// What the context has is somebody else's choice.
void ContextSelection::take(const std::string& inputMethod) {
    wish_ = {};
    current_.reset();
    if (!inputMethod.empty()) current_ = inputMethod;
}

void ContextSelection::answered(bool isAccepted) {
    if (!std::exchange(isUnderWay_, false)) return;
    if (wish_.state == State::reached) sent_ = {};
    if (wish_.state != State::sending) return;
    if (sent_.inputMethod != wish_.inputMethod || sent_.target != wish_.target) return send();
    if (!isAccepted) wish_.sent = mostSent;
    wish_.state = State::missed;
    looks_ = 0;
}

// Looking -------------------------------------------------------------------------------------------------

bool ContextSelection::isCertain() const {
    return focused_ && isInFront() && (focused_->isTold || front_.isSettled);
}

bool ContextSelection::isWithoutContext() const {
    return looks_ == mostLooks && !isInFront();
}

std::optional<milliseconds> ContextSelection::nextLook() const {
    const bool isDone = (wish_.state == State::free || wish_.state == State::reached) && isCertain();
    if (isDone || !looks_ || looks_ == mostLooks || wish_.state == State::sending) return std::nullopt;
    return distanceOfLook(*looks_);
}

void ContextSelection::lookAgain() {
    if (!looks_) return;
    ++*looks_;
    if (wish_.state != State::missed || looks_ < looksBeforeSendingAgain) return calls_.look();
    if (wish_.sent < mostSent) return send();
    const auto refused = wish_.inputMethod;
    sent_ = {};
    take(focused_->inputMethod);
    calls_.refused(refused);
}

void ContextSelection::giveUp() {
    wish_ = {};
    current_.reset();
    focused_.reset();
    sent_ = {};
    isUnderWay_ = false;
    looks_.reset();
}

void ContextSelection::forget() {
    giveUp();
    left_.clear();
}

} // namespace quorvane
