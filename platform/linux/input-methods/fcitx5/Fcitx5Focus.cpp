#include "platform/linux/input-methods/fcitx5/Fcitx5Focus.h"

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

/// Stands for the only one that is known, when Fcitx5's description of itself is not understood.
constexpr const char* unknownContext = "?";

} // namespace

void Fcitx5Focus::activated(int process, Time now) {
    isSameProcess_ = process == front_;
    if (front_ != 0) others_.insert(front_);
    windowActivated(process);
    activatedAt_ = now;
    isAnyInFront_ = false;
    focusedBefore_ = focused_ ? focused_->context : std::string();
}

void Fcitx5Focus::windowActivated(int process) {
    others_.erase(process);
    front_ = process;
}

void Fcitx5Focus::told(const std::string& context, int process, Time now) {
    wasTold_ = true;
    const bool isSame = focused_ && focused_->context == context;
    focused_ = {context, true, false, process, isSame ? focused_->since : now};
}

void Fcitx5Focus::seen(const std::optional<std::vector<Fcitx5Context>>& contexts, bool isToldOfMost,
                       Time now) {
    if (!contexts) {
        if (!isTold()) see(unknownContext, true, now);
        return;
    }
    const auto isNews = [&](const Fcitx5Context& context) {
        if (!context.hasFocus) return false;
        // One that has had the focus since before this program was there will not be told of.
        return !wasTold_ || !isToldOfMost || !context.isOfDBus();
    };
    const auto found = std::ranges::find_if(*contexts, isNews);
    if (found != contexts->end())
        see(found->uuid, found->isOfDBus(), now);
    else if (!isTold())
        focused_.reset();
}

void Fcitx5Focus::see(std::string context, bool mayBeTold, Time now) {
    if (!focused_ || focused_->context != context) focused_ = {std::move(context), false, mayBeTold, 0, now};
}

void Fcitx5Focus::forget() {
    focused_.reset();
    wasTold_ = false;
}

const std::string* Fcitx5Focus::inFront(Time now) const {
    if (!focused_) return nullptr;
    return isInFront(*focused_, now) ? &focused_->context : nullptr;
}

bool Fcitx5Focus::isInFront(const Focused& focused, Time now) const {
    const bool isRecent = focused.since >= activatedAt_ - overtaking;
    if (!focused.isTold)
        return isAnyInFront_ || focused.context != focusedBefore_ || now >= activatedAt_ + overtaking;
    if (focused.process == front_) return isAnyInFront_ || isRecent || !isSameProcess_;
    if (focused.process == 0) return isRecent;
    return isAnyInFront_ && !others_.contains(focused.process);
}

} // namespace quorvane
