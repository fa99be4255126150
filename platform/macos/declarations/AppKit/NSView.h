#pragma once

// Public SDK documentation.

#import <AppKit/NSAccessibility.h>
#import <AppKit/NSLayoutConstraint.h>
#import <AppKit/NSResponder.h>

#pragma clang assume_nonnull begin

@class NSWindow;

@class CALayer;

@interface NSView : NSResponder <NSAccessibility>
- (instancetype)initWithFrame:(NSRect)frameRect;
@property NSRect frame;
@property(readonly) NSRect bounds;
@property(getter=isHidden) BOOL hidden;
@property(nullable, copy) NSString* toolTip;
@property(readonly) BOOL mouseDownCanMoveWindow;
- (void)addSubview:(NSView*)view;
@property BOOL wantsLayer;
@property(nullable, strong) CALayer* layer;
@property(nullable, readonly, assign) NSWindow* window;
@property(copy) NSArray<__kindof NSView*>* subviews;
- (BOOL)isDescendantOf:(NSView*)view;
@property BOOL needsDisplay;
- (void)setFrameSize:(NSSize)newSize;
- (void)viewWillMoveToWindow:(nullable NSWindow*)newWindow;
- (void)viewDidHide;
- (NSPoint)convertPoint:(NSPoint)point fromView:(nullable NSView*)view;
- (BOOL)acceptsFirstMouse:(nullable NSEvent*)event;
- (void)drawRect:(NSRect)dirtyRect;
@property(readonly) NSRect focusRingMaskBounds;
- (void)drawFocusRingMask;
- (void)viewDidChangeEffectiveAppearance API_AVAILABLE(macos(10.14));
@end

typedef NSString* NSUserInterfaceItemIdentifier;

@interface NSView (NSUserInterfaceItemIdentification)
@property(nullable, copy) NSUserInterfaceItemIdentifier identifier;
@end

@interface NSView (NSConstraintBasedLayout)
@property BOOL translatesAutoresizingMaskIntoConstraints;
@property(readonly) NSSize fittingSize;
@property(readonly) NSSize intrinsicContentSize;
@property(readonly, strong) NSLayoutXAxisAnchor* leadingAnchor;
@property(readonly, strong) NSLayoutXAxisAnchor* trailingAnchor;
@property(readonly, strong) NSLayoutYAxisAnchor* topAnchor;
@property(readonly, strong) NSLayoutYAxisAnchor* bottomAnchor;
@property(readonly, strong) NSLayoutDimension* widthAnchor;
@property(readonly, strong) NSLayoutDimension* heightAnchor;
@property(readonly, strong) NSLayoutXAxisAnchor* centerXAnchor;
@property(readonly, strong) NSLayoutYAxisAnchor* centerYAnchor;
- (void)setContentHuggingPriority:(NSLayoutPriority)priority
                   forOrientation:(NSLayoutConstraintOrientation)orientation;
@end

@interface NSView (NSDrag)
- (void)registerForDraggedTypes:(NSArray<NSString*>*)newTypes;
@end

#pragma clang assume_nonnull end
