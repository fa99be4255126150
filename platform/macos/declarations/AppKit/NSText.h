#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSView.h>

#pragma clang assume_nonnull begin

@protocol NSTextDelegate <NSObject>
@end

@interface NSText : NSView
@property(copy) NSString* string;
- (void)cut:(nullable id)sender;
- (void)copy:(nullable id)sender;
- (void)paste:(nullable id)sender;
- (void)selectAll:(nullable id)sender;
@property(getter=isFieldEditor) BOOL fieldEditor;
@property(nullable, weak) id<NSTextDelegate> delegate;
@end

#pragma clang assume_nonnull end
