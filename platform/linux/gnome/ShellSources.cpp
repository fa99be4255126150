#include "platform/linux/gnome/ShellSources.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include <QDBusMessage>

#include "platform/linux/input-methods/ibus/IBusEngines.h"

namespace quorvane {
namespace {

bool isEngine(const std::string& id) {
    return id.starts_with(ibusIdPrefix);
}

/// A layout's short name is the code of its language, with a number if there are several of it. An engine's
/// may be a sign.
InputMethodIcon iconOf(const ShellSource& source) {
    const auto& name = source.shortName;
    const bool isCode = !name.empty() && std::isalpha(static_cast<unsigned char>(name.front()));
    return isCode ? InputMethodIcon{.reference = {}, .symbol = {}, .code = name}
                  : InputMethodIcon{.reference = {}, .symbol = name, .code = {}};
}

} // namespace

ShellSources::ShellSources(GnomeShell& shell, ShellMessages& messages, const InputMethodIcons& icons)
    : shell_(shell)
    , icons_(icons) {
    subscriptions_.push_back(messages.sourcesChanged.connect(
        [this](const auto& sources, const auto& current) { listChanged(sources, current); }));
    subscriptions_.push_back(
        messages.sourceChanged.connect([this](const auto& current) { currentChanged(current); }));
    subscriptions_.push_back(shell.starting.connect([this] { unanswered_ = 0; }));
    subscriptions_.push_back(shell.started.connect([this] { tellLatin(); }));
}

const ShellSource* ShellSources::find(std::string_view id) const {
    const auto found = std::ranges::find(sources_, id, &ShellSource::id);
    return found == sources_.end() ? nullptr : &*found;
}

std::vector<InputSource> ShellSources::createInputSourceList(std::optional<std::string_view> id) const {
    std::vector<InputSource> list;
    for (const auto& source : sources_)
        if (!id || source.id == *id) list.push_back({.id = source.id, .hasIconReference = true});
    return list;
}

std::optional<InputSource> ShellSources::copyCurrentKeyboardInputSource() const {
    if (!find(current_)) return std::nullopt;
    return InputSource{.id = current_, .hasIconReference = true};
}

std::optional<InputSource> ShellSources::copyCurrentKeyboardLayoutInputSource() const {
    return copyCurrentKeyboardInputSource();
}

bool ShellSources::selectInputSource(const InputSource& source) {
    const auto id = QString::fromStdString(source.id);
    if (!find(source.id) ||
        !shell_.call("Select", {id, shell_.activations()}, [this](const auto&) { answered(); }))
        return false;
    current_ = source.id;
    ++unanswered_;
    return true;
}

/// All that the shell had selected before has been told by now.
void ShellSources::answered() {
    if (--unanswered_ == 0) currentChanged(told_);
}

void ShellSources::currentChanged(const std::string& current) {
    told_ = current;
    if (unanswered_ > 0) return;
    current_ = current;
    if (std::exchange(observed_, current) != current) selectionChanged.emit();
}

void ShellSources::listChanged(const std::vector<ShellSource>& sources, const std::string& current) {
    const bool isNew = sources != sources_;
    sources_ = sources;
    if (isNew) {
        tellLatin();
        observed_.clear();
    }
    if (unanswered_ > 0 && !find(current_)) current_ = current;
    currentChanged(current);
}

/// An engine may leave the layout alone, and then types with whatever was there before.
void ShellSources::tellLatin() {
    if (std::ranges::none_of(sources_, isEngine, &ShellSource::id)) return;
    shell_.call("SetLatin", {QString::fromStdString(underneath_.firstLatin())});
}

std::string ShellSources::localizedName(const InputSource& source) const {
    const auto* known = find(source.id);
    return known && !known->name.empty() ? known->name : source.id;
}

ImageRef ShellSources::iconOfReference(const InputSource& source) const {
    const auto* known = find(source.id);
    return known ? icons_.iconOf(iconOf(*known)) : nullptr;
}

} // namespace quorvane
