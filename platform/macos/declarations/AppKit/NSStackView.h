#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSView.h>

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSInteger, NSUserInterfaceLayoutOrientation) {
    NSUserInterfaceLayoutOrientationHorizontal = 0,
    NSUserInterfaceLayoutOrientationVertical = 1
};

typedef NS_ENUM(NSInteger, NSStackViewDistribution) { NSStackViewDistributionFill = 0 };

@interface NSStackView : NSView
+ (instancetype)stackViewWithViews:(NSArray<NSView*>*)views;
@property NSUserInterfaceLayoutOrientation orientation;
@property NSLayoutAttribute alignment;
@property NSEdgeInsets edgeInsets;
@property NSStackViewDistribution distribution API_AVAILABLE(macos(10.11));
@property CGFloat spacing;
- (void)addArrangedSubview:(NSView*)view API_AVAILABLE(macos(10.11));
- (void)setCustomSpacing:(CGFloat)spacing afterView:(NSView*)view API_AVAILABLE(macos(10.11));
@end

#pragma clang assume_nonnull end
