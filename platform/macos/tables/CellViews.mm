#import "platform/macos/tables/CellViews.h"

#include "platform/Widgets.h"
#import "platform/macos/appkit/MacImage.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/recorder/SRRecorderControlWithTagid.h"
#import "platform/macos/tables/CellTarget.h"

namespace quorvane {
namespace {

void name(NSView* view, const CellSurroundings& surroundings) {
    if (surroundings.columnTitle.length > 0) view.accessibilityLabel = surroundings.columnTitle;
}

} // namespace

NSView* makeView(const ImageViewPart& part, const CellSurroundings&) {
    NSImageView* view = [[NSImageView alloc] initWithFrame:NSZeroRect];
    view.imageScaling = NSImageScaleProportionallyDown;
    view.accessibilityElement = NO; // The name is beside it.
    NSImage* image = MacImage::unwrapped(part.image);
    if (part.isTemplate) {
        image = [image copy];    // Others have the same picture in its colours.
        [image setTemplate:YES]; // The name of the property is a word of C++.
    }
    view.image = image;
    return view;
}

NSView* makeView(const TextFieldPart& part, const CellSurroundings& surroundings) {
    NSTextField* field = [[NSTextField alloc] initWithFrame:NSZeroRect];
    field.stringValue = shownText(part.stringValue);
    field.bezeled = NO;
    field.bordered = NO;
    field.drawsBackground = NO;
    field.textColor = NSColor.labelColor;
    field.font = [NSFont systemFontOfSize:part.fontSize > 0 ? part.fontSize : NSFont.systemFontSize];
    field.usesSingleLineMode = YES;
    field.cell.wraps = NO;
    field.cell.scrollable = YES;
    field.lineBreakMode = NSLineBreakByTruncatingTail;
    field.allowsExpansionToolTips = YES;
    if (!part.toolTip.empty()) field.toolTip = toNSString(part.toolTip);
    field.tag = part.tag;
    field.editable = part.isEditable;
    field.selectable = part.isEditable;
    if (!part.isEditable) return field;
    field.identifier = toNSString(part.identifier);
    field.delegate = surroundings.controller;
    name(field, surroundings);
    observe(field, NSControlTextDidEndEditingNotification, field, [reload = surroundings.reload](id) {
        if (const auto table = reload.lock()) table->editingEnded();
    });
    return field;
}

NSView* makeView(const CheckBoxPart& part, const CellSurroundings& surroundings) {
    NSButton* button = [[NSButton alloc] initWithFrame:NSZeroRect];
    [button setButtonType:NSButtonTypeSwitch];
    button.title = @"";
    button.state = part.state == stateOff ? NSControlStateValueOff : NSControlStateValueOn;
    button.tag = part.tag;
    name(button, surroundings);
    button.target =
        targetOf(button, [reload = surroundings.reload, tag = part.tag, action = part.action](id sender) {
            const auto use = useOf(reload);
            NSButton* clicked = sender;
            const int state = clicked.state == NSControlStateValueOn ? stateOn : stateOff;
            if (action) action(tag, state);
        });
    button.action = @selector(receive:);
    return button;
}

NSView* makeView(const BoxPart& part, const CellSurroundings&) {
    NSBox* box = [[NSBox alloc] initWithFrame:NSZeroRect];
    box.boxType = NSBoxCustom;
    box.titlePosition = NSNoTitle;
    box.borderWidth = 1;
    box.cornerRadius = part.cornerRadius;
    box.borderColor = NSColor.disabledControlTextColor;
    box.fillColor = NSColor.textBackgroundColor;
    box.accessibilityElement = NO;
    return box;
}

NSView* makeView(const ShortcutRecorderPart& part, const CellSurroundings& surroundings) {
    auto* recorder = [[SRRecorderControlWithTagid alloc]
        initWithHotKeySuspender:surroundings.suspendHotKeys
                            use:[reload = surroundings.reload] { return useOf(reload); }];
    recorder.tagid = part.tagid;
    recorder.allowedModifierFlags = part.allowedModifierFlags;
    recorder.allowsEmptyModifierFlags = part.allowsEmptyModifierFlags;
    recorder.hasEntry = part.hasEntry;
    recorder.isRefused = part.isRefused;
    recorder.objectValue = toNSObject(part.objectValue);
    name(recorder, surroundings);
    recorder.delegate =
        targetOf(recorder, [reload = surroundings.reload, ended = part.didEndRecording](id sender) {
            const auto use = useOf(reload);
            SRRecorderControlWithTagid* source = sender;
            if (ended) ended(source.tagid, fromNSObject(source.objectValue));
        });
    return recorder;
}

} // namespace quorvane
