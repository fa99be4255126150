#import "platform/macos/recorder/SRRecorderControlWithTagid.h"

#include <memory>
#include <utility>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/recorder/RecorderFace.h"
#import "platform/macos/recorder/RecordingSession.h"
#include "shortcuts/RecorderBehaviour.h"

using quorvane::callProgram;
using quorvane::RecorderBehaviour;

namespace {

constexpr CGFloat cornerRadius = 4;

/// There are no other modifiers than those that hot keys have: Fn stands in the events of some keys by
/// itself.
RecorderBehaviour::Modifiers modifiersOf(NSEventModifierFlags flags) {
    return {.flags = flags};
}

bool takeKeyboard(NSView* view) {
    return [view.window makeFirstResponder:view];
}

void tellDelegate(SRRecorderControlWithTagid* recorder) {
    [recorder.delegate shortcutRecorderDidEndRecording:recorder];
}

} // namespace

@implementation SRRecorderControlWithTagid {
    std::unique_ptr<RecorderBehaviour> _behaviour;
    std::unique_ptr<quorvane::RecorderFace> _face;
}

@synthesize tagid = tagis_;

- (instancetype)initWithHotKeySuspender:(quorvane::HotKeySuspender)suspendHotKeys
                                    use:(std::function<quorvane::Subscription()>)use {
    self = [super initWithFrame:NSZeroRect];
    if (!self) return nil;
    __weak SRRecorderControlWithTagid* weakSelf = self;
    const auto me = [weakSelf] { // what this view owns must not own it
        SRRecorderControlWithTagid* alive = weakSelf;
        return alive;
    };
    const quorvane::RecordingSession session{
        .suspendHotKeys = std::move(suspendHotKeys),
        .use = std::move(use),
        .lostFocus = [me] { [me() endRecording]; },
        .keyUp = [me](unsigned short keyCode) { [me() releaseKey:keyCode]; }};
    _behaviour = std::make_unique<RecorderBehaviour>(
        RecorderBehaviour::View{.takeKeyboard = [me]() -> bool { return takeKeyboard(me()); },
                                .watch = [me, session] { return beginSession(me(), session); },
                                .changed = [me] { [me() refresh]; },
                                .didEndRecording = [me] { tellDelegate(me()); },
                                .heldModifiers = [] { return modifiersOf(NSEvent.modifierFlags); }});
    _face = std::make_unique<quorvane::RecorderFace>(self, @selector(clearShortcut:));
    self.accessibilityElement = YES;
    self.accessibilityRole = NSAccessibilityButtonRole;
    [self refresh];
    return self;
}

// What it records.

- (NSDictionary<NSString*, id>*)objectValue {
    return quorvane::toNSObject(_behaviour->objectValue());
}

- (void)setObjectValue:(NSDictionary<NSString*, id>*)objectValue {
    callProgram([&] { _behaviour->setObjectValue(quorvane::fromNSObject(objectValue), _hasEntry); });
}

- (void)endRecording {
    callProgram([&] { _behaviour->end(); });
}

- (void)releaseKey:(unsigned short)keyCode {
    callProgram([&] { _behaviour->keyUp(keyCode); });
}

- (void)clearShortcut:(nullable id)sender {
    callProgram([&] { _behaviour->clear(); });
}

- (void)setAllowedModifierFlags:(NSEventModifierFlags)allowedModifierFlags {
    _allowedModifierFlags = allowedModifierFlags;
    _behaviour->setRules(_allowedModifierFlags, _allowsEmptyModifierFlags);
}

- (void)setAllowsEmptyModifierFlags:(BOOL)allowsEmptyModifierFlags {
    _allowsEmptyModifierFlags = allowsEmptyModifierFlags;
    _behaviour->setRules(_allowedModifierFlags, _allowsEmptyModifierFlags);
}

// The keyboard.

- (BOOL)acceptsFirstResponder {
    return YES;
}

- (BOOL)resignFirstResponder {
    [self endRecording];
    return [super resignFirstResponder];
}

- (void)keyDown:(NSEvent*)event {
    if (![self takeKey:event]) [super keyDown:event];
}

/// Combinations with Command come here, before a menu gets them.
- (BOOL)performKeyEquivalent:(NSEvent*)event {
    const bool isMeant = _behaviour->isInUse() && self.window.firstResponder == self;
    return (isMeant && [self takeKey:event]) || [super performKeyEquivalent:event];
}

- (BOOL)takeKey:(NSEvent*)event {
    return callProgram([&] {
        return _behaviour->keyDown({.number = event.keyCode,
                                    .keyCode = event.keyCode,
                                    .role = RecorderBehaviour::roleOf(event.keyCode)},
                                   modifiersOf(event.modifierFlags), event.ARepeat);
    });
}

- (void)flagsChanged:(NSEvent*)event {
    const bool isTaken =
        callProgram([&] { return _behaviour->modifiersChanged(modifiersOf(event.modifierFlags)); });
    if (!isTaken) [super flagsChanged:event];
}

// The mouse, and what does the same.

- (BOOL)acceptsFirstMouse:(nullable NSEvent*)event {
    return YES;
}

- (void)mouseDown:(NSEvent*)event {
    callProgram([&] { _behaviour->press(); });
}

/// Nor where the window can be moved by its background.
- (BOOL)mouseDownCanMoveWindow {
    return NO;
}

- (BOOL)accessibilityPerformPress {
    callProgram([&] { _behaviour->press(); });
    return YES;
}

// Where it is.

- (void)viewWillMoveToWindow:(nullable NSWindow*)newWindow {
    [super viewWillMoveToWindow:newWindow];
    [self endRecording];
}

- (void)viewDidHide {
    [super viewDidHide];
    [self endRecording];
}

- (void)setFrameSize:(NSSize)newSize {
    [super setFrameSize:newSize];
    if (_face) _face->layOut(self); // not yet while the superclass is initialized
}

// How it looks.

- (void)refresh {
    if (_face->show(*_behaviour, _isRefused)) {
        self.accessibilityValue = _face->text();
        NSAccessibilityPostNotification(self, NSAccessibilityValueChangedNotification);
    }
    _face->layOut(self);
    self.needsDisplay = YES;
}

- (void)drawRect:(NSRect)dirtyRect {
    _face->draw(self.bounds);
}

- (NSRect)focusRingMaskBounds {
    return NSInsetRect(quorvane::RecorderFace::placeIn(self.bounds), 0, 0.5);
}

- (void)drawFocusRingMask {
    [[NSBezierPath bezierPathWithRoundedRect:self.focusRingMaskBounds
                                     xRadius:cornerRadius
                                     yRadius:cornerRadius] fill];
}

- (void)viewDidChangeEffectiveAppearance {
    [super viewDidChangeEffectiveAppearance];
    self.needsDisplay = YES;
}

@end
