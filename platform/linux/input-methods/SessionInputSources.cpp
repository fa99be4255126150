#include "platform/linux/input-methods/SessionInputSources.h"

#include <algorithm>
#include <utility>

namespace quorvane {

SessionInputSources::SessionInputSources(XkbInputSources& layouts, std::vector<InputMethodDaemon*> daemons)
    : layouts_(layouts)
    , daemons_(std::move(daemons))
    , chosen_(firstAvailable()) {
    subscriptions_.push_back(layouts_.selectionChanged.connect([this] { changed(layouts_); }));
    for (auto* daemon : daemons_) {
        subscriptions_.push_back(daemon->availabilityChanged.connect([this] { chooseAgain(); }));
        subscriptions_.push_back(daemon->selectionChanged.connect([this, daemon] { changed(*daemon); }));
    }
}

TextInputSources* SessionInputSources::firstAvailable() const {
    const auto available = std::ranges::find_if(daemons_, &InputMethodDaemon::isAvailable);
    if (available == daemons_.end()) return &layouts_;
    return *available;
}

void SessionInputSources::chooseAgain() {
    if (std::exchange(chosen_, firstAvailable()) == chosen_) return;
    if (hasForgotten(chosen_)) selectAgain();
    selectionChanged.emit();
}

/// Whether what was selected last is not what these know.
bool SessionInputSources::hasForgotten(const TextInputSources* sources) const {
    const auto daemon = std::ranges::find(daemons_, sources);
    return daemon == daemons_.end() || (*daemon)->isStartedAnew();
}

void SessionInputSources::selectAgain() {
    const auto selected = createInputSourceList(selectedID_);
    const auto current = copyCurrentKeyboardInputSource();
    if (!selected.empty() && (!current || current->id != selectedID_)) selectInputSource(selected.front());
}

void SessionInputSources::changed(const TextInputSources& where) {
    if (&where != chosen_) return;
    if (const auto current = copyCurrentKeyboardInputSource()) selectedID_ = current->id;
    selectionChanged.emit();
}

std::vector<InputSource>
SessionInputSources::createInputSourceList(std::optional<std::string_view> id) const {
    return chosen_->createInputSourceList(id);
}

std::optional<InputSource> SessionInputSources::copyCurrentKeyboardInputSource() const {
    return chosen_->copyCurrentKeyboardInputSource();
}

std::optional<InputSource> SessionInputSources::copyCurrentKeyboardLayoutInputSource() const {
    return chosen_->copyCurrentKeyboardLayoutInputSource();
}

bool SessionInputSources::selectInputSource(const InputSource& source) {
    const bool accepted = chosen_->selectInputSource(source);
    if (accepted) selectedID_ = source.id;
    return accepted;
}

std::string SessionInputSources::localizedName(const InputSource& source) const {
    return chosen_->localizedName(source);
}

ImageRef SessionInputSources::iconOfReference(const InputSource& source) const {
    return chosen_->iconOfReference(source);
}

void SessionInputSources::applicationActivated() {
    for (auto* daemon : daemons_) {
        if (daemon == chosen_) daemon->applicationActivated();
    }
}

} // namespace quorvane
