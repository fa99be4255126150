#include "platform/linux/keyboard/LayoutInputSources.h"

#include <algorithm>
#include <utility>

#include "platform/linux/keyboard/LanguageLetters.h"

namespace quorvane {
namespace {

InputSource sourceOf(const XkbLayout& layout) {
    return {.id = layout.id(), .hasIconReference = true};
}

} // namespace

LayoutInputSources::LayoutInputSources(LayoutKeyboard& keyboard, DrawIcon drawIcon)
    : keyboard_(keyboard)
    , drawIcon_(std::move(drawIcon))
    , selectedID_(idOfGroup(keyboard_.effectiveGroup()))
    , toldID_(selectedID_)
    , groupChanges_(keyboard_.groupChanged.connect([this](unsigned group) { groupChanged(group); }))
    , mapChanges_(keyboard_.mapChanged.connect([this] { mapChanged(); })) {}

const KeyboardLayouts& LayoutInputSources::layouts() const {
    if (!layouts_) layouts_ = keyboard_.layouts();
    return *layouts_;
}

std::string LayoutInputSources::idOfGroup(unsigned group) const {
    const auto& groups = layouts().ofGroups;
    // Beyond the last group, XKB itself goes round at the next key.
    return groups.empty() ? std::string() : groups[group % groups.size()].id();
}

std::vector<InputSource> LayoutInputSources::createInputSourceList(std::optional<std::string_view> id) const {
    std::vector<InputSource> list;
    for (const auto& layout : layouts().ofGroups) {
        auto source = sourceOf(layout);
        if (!id || source.id == *id) list.push_back(std::move(source));
    }
    return list;
}

std::optional<InputSource> LayoutInputSources::copyCurrentKeyboardInputSource() const {
    const auto matching = createInputSourceList(idOfGroup(keyboard_.effectiveGroup()));
    if (matching.empty()) return std::nullopt;
    return matching.front();
}

std::optional<InputSource> LayoutInputSources::copyCurrentKeyboardLayoutInputSource() const {
    return copyCurrentKeyboardInputSource();
}

bool LayoutInputSources::selectInputSource(const InputSource& source) {
    const auto& groups = layouts().ofGroups;
    const auto group = std::ranges::find(groups, source.id, &XkbLayout::id);
    if (group == groups.end()) return false;
    keyboard_.lockGroup(static_cast<unsigned>(group - groups.begin()));
    selectedID_ = source.id;
    return true;
}

const XkbLayoutNames& LayoutInputSources::namesOf(const InputSource& source) const {
    if (!names_) {
        const auto& known = layouts();
        names_ = namesOfLayouts(known.ofGroups);
        for (std::size_t group = 0; group < known.ofGroups.size(); ++group) {
            const auto& layout = known.ofGroups[group];
            const bool hasName = group < known.names.size() && !known.names[group].empty();
            names_->try_emplace(layout.id(),
                                XkbLayoutNames{hasName ? known.names[group] : layout.layout, layout.layout});
        }
    }
    static const XkbLayoutNames none;
    const auto names = names_->find(source.id);
    return names == names_->end() ? none : names->second;
}

std::string LayoutInputSources::localizedName(const InputSource& source) const {
    const auto& description = namesOf(source).description;
    return description.empty() ? source.id : description;
}

ImageRef LayoutInputSources::iconOfReference(const InputSource& source) const {
    const auto letters = languageLetters(namesOf(source).brief);
    return letters.empty() ? nullptr : drawIcon_(letters);
}

void LayoutInputSources::mapChanged() {
    // One change of the map is told up to a dozen times; all of it has arrived when the loop comes round.
    if (!std::exchange(mapChangePending_, true)) {
        groupsBeforeChange_ = layouts().ofGroups;
        QMetaObject::invokeMethod(
            &later_, [this] { keepSelectionAcrossMaps(); }, Qt::QueuedConnection);
    }
    layouts_.reset();
    names_.reset();
}

/// The number of the locked group stays when the list of layouts is replaced, even beyond the end of the new
/// list, or becomes 0. What the user selected is a layout, not a number.
void LayoutInputSources::keepSelectionAcrossMaps() {
    mapChangePending_ = false;
    const auto& groups = layouts().ofGroups;
    if (groups.empty()) return;
    keyboard_.readGroup();
    const auto effective = keyboard_.effectiveGroup();
    auto wanted = effective % groups.size();
    if (groups != groupsBeforeChange_) {
        const auto kept = std::ranges::find(groups, selectedID_, &XkbLayout::id);
        if (kept != groups.end()) wanted = static_cast<std::size_t>(kept - groups.begin());
    }
    if (wanted != effective) keyboard_.lockGroup(static_cast<unsigned>(wanted));
    selectedID_ = groups[wanted].id();
    tellSelection(selectedID_);
}

void LayoutInputSources::groupChanged(unsigned group) {
    if (mapChangePending_) return; // which layout the group means is told when the new map has been read
    selectedID_ = idOfGroup(group);
    tellSelection(selectedID_);
}

void LayoutInputSources::tellSelection(std::string id) {
    if (id == toldID_) return;
    toldID_ = std::move(id);
    selectionChanged.emit();
}

} // namespace quorvane
