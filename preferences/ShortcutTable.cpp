#include "preferences/ShortcutTable.h"

#include <utility>

#include "input/MonochromeTest.h"
#include "platform/GlobalEventMonitor.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"

namespace quorvane {
namespace {

constexpr Rect cellFrame{0, 0, 150, rowHeight};
constexpr Rect shortcutIconFrame{20, 3, 18, 18};
constexpr Rect nameFrame{0, 0, 145, 20};
constexpr Rect boxFrame{20, 1.5, 140, 20};
constexpr Rect recorderFrame{20, -8, 140, 30}; // higher than its box, and over it
constexpr double boxCornerRadius = 4;
constexpr std::uint64_t allowedModifierFlags =
    ModifierFlag::shift | ModifierFlag::control | ModifierFlag::option | ModifierFlag::command;

/// A key without modifiers is shown only if it is a function key, though it is a hot key all the same.
bool isShown(const InputShortcut& shortcut) {
    return shortcut.modifierFlags > 0 || InputShortcut::isFunctionKey(shortcut.keyCode);
}

/// What the recorder shows for a stored record.
PropertyList shownShortcut(const PropertyList& record) {
    const auto shortcut = InputShortcut::ofRecord(record);
    return shortcut && isShown(*shortcut) ? shortcut->record() : PropertyList();
}

} // namespace

const InputSourceInfo* ShortcutTable::inputAt(std::int64_t row) const {
    const auto& inputs = lists_.inputs.arrOfInputInfo;
    return row >= 0 && static_cast<std::size_t>(row) < inputs.size() ? &inputs[static_cast<std::size_t>(row)]
                                                                     : nullptr;
}

CellView ShortcutTable::tableViewForShortcut(std::string_view column, int row) {
    const auto* input = inputAt(row);
    if (!input) return {};
    if (column == "Icon") {
        // By its place: behind a source without an icon, every row shows a later source's.
        const auto icon = lists_.inputs.iconAt(static_cast<std::size_t>(row));
        const Size size{shortcutIconFrame.width, shortcutIconFrame.height};
        return {.frame = cellFrame,
                .parts = {ImageViewPart{shortcutIconFrame, icon ? scaleImage(icon, size) : nullptr,
                                        isMonochrome(icon)}}};
    }
    if (column == "Input")
        return {.frame = cellFrame,
                .parts = {TextFieldPart{.frame = nameFrame, .stringValue = input->inputName}}};
    return column == "ShortCut" ? recorderCell(*input, row) : CellView{};
}

CellView ShortcutTable::recorderCell(const InputSourceInfo& input, int row) {
    const auto record = standard_.objectForKey(key::shortcutOfInput)[input.id];
    ShortcutRecorderPart recorder{.frame = recorderFrame,
                                  .objectValue = shownShortcut(record),
                                  .hasEntry = !record.isNothing(),
                                  .isRefused = hotKeyCenter_.isRefused(input.id),
                                  .tagid = row,
                                  .allowedModifierFlags = allowedModifierFlags,
                                  .allowsEmptyModifierFlags = true};
    recorder.didEndRecording = [this](std::int64_t tagid, PropertyList objectValue) {
        SRRecorderControlWithTagid control;
        control.setTagid(tagid);
        control.setObjectValue(std::move(objectValue));
        shortcutRecorderDidEndRecording(control);
    };
    return {.frame = cellFrame, .parts = {BoxPart{boxFrame, boxCornerRadius}, std::move(recorder)}};
}

void ShortcutTable::shortcutRecorderDidEndRecording(const SRRecorderControlWithTagid& recorder) {
    const auto* input = inputAt(recorder.tagid());
    if (!input) return;
    const auto& recorded = recorder.objectValue();
    if (recorded.isNothing()) {
        if (const auto hotKey = hotKeyCenter_.hotKeyWithIdentifier(input->id))
            hotKeyCenter_.unregisterHotKey(*hotKey);
        removeShortcut(standard_, input->id);
    } else {
        // In place of the old one, so that no other row gets a combination which this one keeps.
        hotKeyCenter_.registerHotKey(PTHotKey::hotKeyWithIdentifier(input->id, recorded, pressed_));
        setShortcut(standard_, input->id, recorded);
    }
    table_.reloadData();
}

} // namespace quorvane
