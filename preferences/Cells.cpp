#include "preferences/Cells.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr Rect textFrame{0, 2.5, 1000, 20};
constexpr Rect iconFrame{6, 3, 20, 20};
constexpr Rect popUpFrame{0, 1, 150, 22};
constexpr double textFontSize = 12;

} // namespace

TextFieldPart creatNSTextFieldWithStringValue(const std::string& stringValue, bool setToolTip, int atRow) {
    return {.frame = textFrame,
            .stringValue = stringValue,
            .toolTip = setToolTip ? stringValue : std::string(),
            .tag = atRow,
            .fontSize = textFontSize};
}

CellView applicationIconCell(const ApplicationBundles& bundles, const std::string& bundleIdentifier) {
    const auto path = bundles.absolutePathForAppBundle(bundleIdentifier);
    return {.parts = {ImageViewPart{iconFrame, path ? bundles.iconForFile(*path) : nullptr}}};
}

PopUpButtonPart inputPopUp(PreferencesLists& lists, int row, bool offersNone,
                           const std::optional<std::string>& selectedId) {
    PopUpButtonPart popUp{.frame = popUpFrame, .itemTitles = lists.inputs.arrOfInputName, .tag = row};
    if (!offersNone) popUp.itemTitles.erase(popUp.itemTitles.begin());
    const auto selected = selectedId ? lists.inputs.nameOfInput(*selectedId) : std::nullopt;
    if (selected)
        popUp.title = *selected;
    else if (!popUp.itemTitles.empty())
        popUp.title = popUp.itemTitles.front();
    popUp.willPopUp = [&lists](int tag) { lists.rowOfPopUpButton = tag; };
    return popUp;
}

std::optional<std::string> idOfInputNamed(const InputSourceCatalogue& inputs, std::string_view inputName) {
    const auto found = std::ranges::find(inputs.arrOfInputInfo, inputName, &InputSourceInfo::inputName);
    if (found == inputs.arrOfInputInfo.end()) return std::nullopt;
    return found->id;
}

} // namespace quorvane
