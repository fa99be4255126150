#include "platform/linux/input-methods/ibus/IBusSelection.h"

#include <utility>

namespace quorvane {

const std::optional<std::string>& IBusSelection::current() const {
    if (next_) return next_;
    return underWay_ ? underWay_ : told_;
}

void IBusSelection::select(const std::string& engine) {
    if (underWay_)
        next_ = engine;
    else
        set(engine);
}

void IBusSelection::set(std::string engine) {
    mustRestore_ = false;
    underWay_ = std::move(engine);
    calls_.set(*underWay_);
}

void IBusSelection::setAnswered(bool isAccepted) {
    if (!underWay_) return;
    const auto engine = std::exchange(underWay_, std::nullopt);
    if (isAccepted) told_ = engine;
    if (auto next = std::exchange(next_, std::nullopt); next && (!isAccepted || next != engine)) {
        set(std::move(*next));
    } else if (!isAccepted || std::exchange(mustAskAgain_, false)) {
        ask();
    }
}

void IBusSelection::ask() {
    mustAskAgain_ = isAsking_;
    if (!std::exchange(isAsking_, true)) calls_.ask();
}

void IBusSelection::askAnswered(std::optional<std::string> engine) {
    isAsking_ = false;
    if (underWay_) return;
    if (engine)
        told_ = std::move(engine);
    else if (told_ && mustRestore_)
        return set(*told_);
    if (mustAskAgain_) return ask();
    mustRestore_ = false;
}

void IBusSelection::heard(std::string_view engine) {
    if (underWay_)
        mustAskAgain_ = mustAskAgain_ || engine != *underWay_;
    else if (engine != told_)
        ask();
}

void IBusSelection::restoreIfGone() {
    mustRestore_ = true;
    if (underWay_)
        mustAskAgain_ = true; // It may have died before the answer is read.
    else
        ask();
}

void IBusSelection::forget() {
    told_.reset();
    underWay_.reset();
    next_.reset();
    isAsking_ = mustAskAgain_ = mustRestore_ = false;
}

} // namespace quorvane
