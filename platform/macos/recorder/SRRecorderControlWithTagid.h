#pragma once

#include <cstdint>
#include <functional>

#include "platform/Subscription.h"
#import "platform/macos/AppKit.h"
#include "platform/macos/keyboard/HotKeySuspender.h"

@class SRRecorderControlWithTagid;

@protocol ShortcutRecorderDelegate <NSObject>

/// A combination was recorded or cleared: `objectValue` is the new one. Nothing is said when it stays as it
/// was.
- (void)shortcutRecorderDidEndRecording:(nonnull SRRecorderControlWithTagid*)recorder;

@end

/// Shows a key combination, and records another one; see `RecorderBehaviour`. No hot key of this program
/// fires while it records.
@interface SRRecorderControlWithTagid : NSView

/// `use` is asked for a use of the cell when a recording begins.
- (nonnull instancetype)initWithHotKeySuspender:(quorvane::HotKeySuspender)suspendHotKeys
                                            use:(std::function<quorvane::Subscription()>)use;
- (nonnull instancetype)initWithFrame:(NSRect)frameRect __attribute__((unavailable));

@property(nonatomic, assign) int64_t tagid;

/// The key code under "keyCode" and the modifiers under "modifierFlags"; nil for no combination.
@property(nonatomic, copy, nullable) NSDictionary<NSString*, id>* objectValue;

/// Whether there is something to clear, shown or not, and whether that has no effect. To be set before
/// `objectValue`.
@property(nonatomic, assign) BOOL hasEntry;
@property(nonatomic, assign) BOOL isRefused;

@property(nonatomic, weak, nullable) id<ShortcutRecorderDelegate> delegate;

// Which combinations can be recorded.
@property(nonatomic, assign) NSEventModifierFlags allowedModifierFlags;
@property(nonatomic, assign) BOOL allowsEmptyModifierFlags;

@end
