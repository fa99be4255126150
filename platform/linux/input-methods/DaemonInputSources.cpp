#include "platform/linux/input-methods/DaemonInputSources.h"

#include <algorithm>
#include <utility>

#include "platform/linux/Log.h"
#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {
namespace {

bool isLayoutID(std::string_view id) {
    return layoutOfID(id).has_value();
}

} // namespace

DaemonInputSources::DaemonInputSources(LayoutSources& layouts, InputMethodIcons icons,
                                       TypesLayouts typesLayouts)
    : layouts_(layouts)
    , underneath_(layouts)
    , icons_(std::move(icons))
    , typesLayouts_(typesLayouts)
    , selection_({.select = [this](const std::string& ownName) { callSelect(ownName); },
                  .look = [this] { callLook(); },
                  .refused =
                      [this](const std::string& ownName) {
                          logLine(std::string(name()) + " does not select " + ownName);
                      }})
    , layoutChanges_(layouts.selectionChanged.connect([this] { tellSelection(); })) {
    looks_.setSingleShot(true);
    looks_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&looks_, &QTimer::timeout, &looks_, [this] {
        selection_.lookAgain();
        selectionMoved();
    });
    settling_.setSingleShot(true);
    settling_.setInterval(ContextSelection::settling);
    QObject::connect(&settling_, &QTimer::timeout, &settling_, [this] {
        selection_.settled();
        selectionMoved();
    });
}

// The selection -------------------------------------------------------------------------------------------

void DaemonInputSources::selectionMoved() {
    const auto next = isAvailable_ ? selection_.nextLook() : std::nullopt; // Else there is nobody to ask.
    if (!next)
        looks_.stop();
    else if (!looks_.isActive() || *next < looks_.remainingTimeAsDuration())
        looks_.start(*next);
    tellSelection();
}

/// For what has become current, also by somebody else's selection. Afterwards the layout is the user's.
void DaemonInputSources::prepareUnderneath() {
    const auto& current = selection_.current();
    if (!isAvailable_ || !current || prepared_ == current) return;
    prepared_ = current;
    if (typesLayouts_ == TypesLayouts::itself || !isLayoutID(idOf(*current)))
        underneath_.prepareFor(idOf(*current));
}

void DaemonInputSources::tellSelection() {
    prepareUnderneath();
    const auto current = copyCurrentKeyboardInputSource();
    if (current && std::exchange(toldID_, current->id) != current->id) selectionChanged.emit();
}

void DaemonInputSources::setAvailable(bool isAvailable) {
    if (std::exchange(isAvailable_, isAvailable) == isAvailable) return;
    const auto current = copyCurrentKeyboardInputSource();
    toldID_ = current ? current->id : std::string(); // Who hears of the daemon asks for it.
    availabilityChanged.emit();
}

bool DaemonInputSources::selectInputSource(const InputSource& source) {
    const auto* method = isAvailable_ ? methodWithID(source.id) : nullptr;
    if (!method || !sourceOf(source.id).isSelectCapable) return false;
    underneath_.prepareFor(source.id);
    prepared_ = method->ownName;
    selection_.select(method->ownName);
    selectionMoved();
    return true;
}

// What is answered ----------------------------------------------------------------------------------------

const DaemonInputSources::Method* DaemonInputSources::methodWithID(std::string_view id) const {
    const auto method = std::ranges::find(methods_, id, &Method::id);
    return method == methods_.end() ? nullptr : &*method;
}

/// A layout that the server is to type with, and does not have, cannot take effect: the list of layouts is
/// the user's.
InputSource DaemonInputSources::sourceOf(const std::string& id) const {
    const bool canTakeEffect =
        typesLayouts_ == TypesLayouts::itself || !isLayoutID(id) || underneath_.has(id);
    return {.id = id, .isSelectCapable = canTakeEffect, .hasIconReference = true};
}

std::vector<InputSource> DaemonInputSources::createInputSourceList(std::optional<std::string_view> id) const {
    std::vector<InputSource> list;
    for (const auto& method : methods_) {
        if (isAvailable_ && (!id || method.id == *id)) list.push_back(sourceOf(method.id));
    }
    return list;
}

bool DaemonInputSources::isHandedThrough(const std::string& id) const {
    const auto* method = methodWithID(id);
    return typesLayouts_ == TypesLayouts::server || (method && method->isHandedThrough);
}

/// An input method that is given other letters than Latin ones hands them on.
bool DaemonInputSources::isTypedByLayout() const {
    const auto& current = selection_.current();
    if (!current) return typesLayouts_ == TypesLayouts::server || selection_.isWithoutContext();
    using enum ContextSelection::State;
    const bool isThere = selection_.state() == free || selection_.state() == reached;
    if (!isThere) return false;
    const auto id = idOf(*current);
    return isLayoutID(id) ? isHandedThrough(id) : !underneath_.isLatin();
}

std::optional<InputSource> DaemonInputSources::copyCurrentKeyboardInputSource() const {
    if (!isAvailable_) return std::nullopt;
    if (isTypedByLayout()) return layouts_.copyCurrentKeyboardInputSource();
    const auto& current = selection_.current();
    return current ? std::optional(sourceOf(idOf(*current))) : std::nullopt;
}

std::optional<InputSource> DaemonInputSources::copyCurrentKeyboardLayoutInputSource() const {
    auto current = copyCurrentKeyboardInputSource();
    return current && isLayoutID(current->id) ? current : layouts_.copyCurrentKeyboardInputSource();
}

std::string DaemonInputSources::localizedName(const InputSource& source) const {
    if (underneath_.has(source.id)) return layouts_.localizedName(source);
    const auto* method = methodWithID(source.id);
    return method && !method->humanName.empty() ? method->humanName : source.id;
}

ImageRef DaemonInputSources::iconOfReference(const InputSource& source) const {
    if (underneath_.has(source.id)) return layouts_.iconOfReference(source);
    const auto* method = methodWithID(source.id);
    return method ? icons_.iconOf(method->icon) : nullptr;
}

} // namespace quorvane
