#include "platform/linux/input-methods/SessionInputSources.h"

#include <algorithm>
#include <utility>

namespace quorvane {

SessionInputSources::SessionInputSources(std::string session, LayoutSources& layouts,
                                         std::vector<InputMethodDaemon*> daemons)
    : session_(std::move(session))
    , layouts_(layouts)
    , underneath_(layouts)
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

std::string_view SessionInputSources::provider() const {
    const auto daemon = std::ranges::find(daemons_, chosen_);
    return daemon == daemons_.end() ? std::string_view(session_) : (*daemon)->name();
}

void SessionInputSources::chooseAgain() {
    if (std::exchange(chosen_, firstAvailable()) == chosen_) return;
    createInputSourceList(); // It remembers them.
    if (isStartedAnew() || isMissed_) selectAgain();
    selectionChanged.emit();
}

/// Whether what was selected last is not what the chosen sources know.
bool SessionInputSources::isStartedAnew() const {
    const auto daemon = std::ranges::find(daemons_, chosen_);
    return daemon == daemons_.end() || (*daemon)->isStartedAnew();
}

void SessionInputSources::selectAgain() {
    const auto selected = createInputSourceList(selectedID_);
    const auto current = copyCurrentKeyboardInputSource();
    if (!selected.empty() && (!current || current->id != selectedID_)) selectInputSource(selected.front());
}

void SessionInputSources::changed(const TextInputSources& where) {
    if (&where != chosen_) return;
    const auto current = copyCurrentKeyboardInputSource();
    if (current && current->id != awaitedLayout_) {
        selectedID_ = current->id;
        awaitedLayout_.clear();
    }
    selectionChanged.emit();
}

bool SessionInputSources::isOfDaemon(std::string_view id) const {
    return std::ranges::any_of(daemons_,
                               [id](const auto* daemon) { return id.starts_with(daemon->idPrefix()); });
}

void SessionInputSources::remember(const std::vector<InputSource>& list) const {
    for (const auto& source : list)
        if (isOfDaemon(source.id)) listed_.insert(source.id);
}

void SessionInputSources::await(const std::string& id) {
    if (listed_.contains(id)) underneath_.prepareFor(id);
    const auto current = layouts_.copyCurrentKeyboardInputSource();
    awaitedLayout_ = current ? current->id : std::string();
    selectedID_ = id;
    isMissed_ = true;
}

std::vector<InputSource>
SessionInputSources::createInputSourceList(std::optional<std::string_view> id) const {
    auto list = chosen_->createInputSourceList(id);
    remember(list);
    if (id && list.empty() && isAwaited(*id)) list.push_back({.id = std::string(*id)});
    return list;
}

std::optional<InputSource> SessionInputSources::copyCurrentKeyboardInputSource() const {
    return chosen_->copyCurrentKeyboardInputSource();
}

std::optional<InputSource> SessionInputSources::copyCurrentKeyboardLayoutInputSource() const {
    return chosen_->copyCurrentKeyboardLayoutInputSource();
}

bool SessionInputSources::selectInputSource(const InputSource& source) {
    if (isAwaited(source.id)) {
        await(source.id);
        return true;
    }
    if (!chosen_->selectInputSource(source)) return false;
    selectedID_ = source.id;
    awaitedLayout_.clear();
    isMissed_ = chosen_ == &layouts_;
    return true;
}

std::string SessionInputSources::localizedName(const InputSource& source) const {
    return chosen_->localizedName(source);
}

ImageRef SessionInputSources::iconOfReference(const InputSource& source) const {
    return chosen_->iconOfReference(source);
}

void SessionInputSources::applicationActivated(const std::string& application, int process) {
    isMissed_ = false;
    for (auto* daemon : daemons_)
        daemon->applicationActivated(application, process);
}

} // namespace quorvane
