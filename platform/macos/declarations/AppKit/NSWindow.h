#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSAccessibility.h>
#import <AppKit/NSResponder.h>

#pragma clang assume_nonnull begin

@class NSColor;
@class NSView;

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskBorderless = 0,
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskClosable = 1 << 1,
    NSWindowStyleMaskMiniaturizable = 1 << 2,
    NSWindowStyleMaskResizable = 1 << 3,
    NSWindowStyleMaskNonactivatingPanel = 1 << 7
};

typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
    NSWindowCollectionBehaviorDefault = 0,
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    NSWindowCollectionBehaviorTransient = 1 << 3,
    NSWindowCollectionBehaviorIgnoresCycle = 1 << 6,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8
};

typedef NS_ENUM(NSUInteger, NSBackingStoreType) { NSBackingStoreBuffered = 2 };

typedef NS_ENUM(NSInteger, NSWindowAnimationBehavior) { NSWindowAnimationBehaviorNone = 2 };

typedef NSInteger NSWindowLevel;
typedef NSString* NSWindowFrameAutosaveName;
typedef NS_ENUM(NSInteger, NSWindowTabbingMode) { NSWindowTabbingModeDisallowed = 2 };

extern "C" NSNotificationName const NSWindowWillCloseNotification;

@interface NSWindow : NSResponder <NSAccessibility>
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag;
@property(copy) NSString* title;
@property(nullable, weak) NSView* initialFirstResponder;
@property BOOL autorecalculatesKeyViewLoop;
@property(getter=isRestorable) BOOL restorable;
@property NSWindowTabbingMode tabbingMode API_AVAILABLE(macos(10.12));
@property NSSize contentMinSize;
- (void)setContentSize:(NSSize)size;
- (void)center;
- (BOOL)setFrameUsingName:(NSWindowFrameAutosaveName)name;
- (BOOL)setFrameAutosaveName:(NSWindowFrameAutosaveName)name;
- (BOOL)makeFirstResponder:(nullable NSResponder*)responder;
@property(readonly) NSRect frame;
@property(readonly, getter=isMiniaturized) BOOL miniaturized;
@property(getter=isVisible, readonly) BOOL visible;
@property(readonly) BOOL canBecomeKeyWindow;
@property(getter=isKeyWindow, readonly) BOOL keyWindow;
@property(nullable, strong) NSView* contentView;
@property NSWindowStyleMask styleMask;
@property NSWindowCollectionBehavior collectionBehavior;
@property NSWindowLevel level;
@property(getter=isOpaque) BOOL opaque;
@property BOOL hasShadow;
@property CGFloat alphaValue;
@property(null_resettable, copy) NSColor* backgroundColor;
@property(getter=isMovableByWindowBackground) BOOL movableByWindowBackground;
@property BOOL hidesOnDeactivate;
@property BOOL canHide;
@property BOOL ignoresMouseEvents;
@property BOOL preventsApplicationTerminationWhenModal;
@property NSWindowAnimationBehavior animationBehavior;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property(getter=isExcludedFromWindowsMenu) BOOL excludedFromWindowsMenu;
- (void)setFrameOrigin:(NSPoint)point;
- (void)makeKeyAndOrderFront:(nullable id)sender;
- (void)orderFrontRegardless;
- (void)orderOut:(nullable id)sender;
- (void)performClose:(nullable id)sender;
- (void)performMiniaturize:(nullable id)sender;
- (void)deminiaturize:(nullable id)sender;
@property(nullable, readonly, weak) NSResponder* firstResponder;
@end

@interface NSPanel : NSWindow
@end

extern "C" NSNotificationName const NSWindowDidResignKeyNotification;

#pragma clang assume_nonnull end
