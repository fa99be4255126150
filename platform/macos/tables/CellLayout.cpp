#include "platform/macos/tables/CellLayout.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr double margin = 2;          // between a control and the next column
constexpr double widestControl = 320; // still looks like one control

enum class Width { own, ofCell, ofCellAsControl };

Width widthOf(const ImageViewPart&) {
    return Width::own;
}
Width widthOf(const CheckBoxPart&) {
    return Width::own;
}
Width widthOf(const TextFieldPart&) {
    return Width::ofCell;
}
Width widthOf(const PopUpButtonPart&) {
    return Width::ofCellAsControl;
}
Width widthOf(const BoxPart&) {
    return Width::ofCellAsControl;
}
Width widthOf(const ShortcutRecorderPart&) {
    return Width::ofCellAsControl;
}

} // namespace

Rect placeIn(const Size& cell, const CellPart& part) {
    const auto [frame, width] =
        std::visit([](const auto& each) { return std::pair(each.frame, widthOf(each)); }, part);
    const double bottom = std::clamp(frame.y, 0.0, cell.height);
    const double top = std::clamp(frame.y + frame.height, bottom, cell.height);
    if (width == Width::own) {
        const double used = std::min(frame.width, cell.width);
        return {std::clamp(frame.x, 0.0, cell.width - used), bottom, used, top - bottom};
    }
    const double left = std::clamp(frame.x, 0.0, cell.width);
    const double room = cell.width - left;
    const double used = width == Width::ofCell ? room : std::clamp(room - margin, 0.0, widestControl);
    return {left, bottom, used, top - bottom};
}

} // namespace quorvane
