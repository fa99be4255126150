#import "platform/macos/tables/EditedText.h"

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

NSTextField* editedField(NSTableView* table) {
    NSResponder* responder = table.window.firstResponder;
    if (![responder isKindOfClass:[NSText class]]) return nil;
    auto* editor = static_cast<NSText*>(responder);
    const id edited = editor.fieldEditor ? editor.delegate : nil;
    if (![edited isKindOfClass:[NSTextField class]]) return nil;
    NSTextField* field = edited;
    return [field isDescendantOf:table] ? field : nil;
}

std::optional<std::string> textBefore(NSControl* control) {
    NSCell* cell = control.cell;
    const id before = cell.representedObject;
    if (![before isKindOfClass:[NSString class]]) return std::nullopt;
    return fromNSString(before);
}

bool isStillIn(NSTextField* field, const CellView& cell) {
    for (const auto& each : cell.parts) {
        if (const auto* text = std::get_if<TextFieldPart>(&each))
            return text->isEditable && textBefore(field) == text->stringValue;
    }
    return false;
}

} // namespace quorvane
