#pragma once

// Declarations of what this program calls, and of no more. They are those of the public SDK documentation;
// the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSApplication.h>
#import <AppKit/NSBezierPath.h>
#import <AppKit/NSBox.h>
#import <AppKit/NSButton.h>
#import <AppKit/NSColor.h>
#import <AppKit/NSDragging.h>
#import <AppKit/NSFont.h>
#import <AppKit/NSGraphicsContext.h>
#import <AppKit/NSImageView.h>
#import <AppKit/NSMenu.h>
#import <AppKit/NSPopUpButton.h>
#import <AppKit/NSScrollView.h>
#import <AppKit/NSStackView.h>
#import <AppKit/NSStatusBar.h>
#import <AppKit/NSStringDrawing.h>
#import <AppKit/NSTabView.h>
#import <AppKit/NSTableCellView.h>
#import <AppKit/NSTableView.h>
#import <AppKit/NSText.h>
#import <AppKit/NSTextField.h>
#import <AppKit/NSView.h>
#import <AppKit/NSWindow.h>
#import <AppKit/NSWindowController.h>
#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@class NSImage;
@class NSWindow;

// Alerts and panels.

typedef NSInteger NSModalResponse;
enum : NSModalResponse { NSModalResponseOK = 1, NSAlertFirstButtonReturn = 1000 };

@interface NSAlert : NSObject
@property(copy) NSString* messageText;
@property(copy) NSString* informativeText;
@property BOOL showsSuppressionButton;
@property(nullable, readonly, strong) NSButton* suppressionButton;
@property(readonly, copy) NSArray<NSButton*>* buttons;
- (NSButton*)addButtonWithTitle:(NSString*)title;
- (NSModalResponse)runModal;
- (void)beginSheetModalForWindow:(NSWindow*)window
               completionHandler:(void (^_Nullable)(NSModalResponse response))handler;
@end

@interface NSSavePanel : NSPanel
@property BOOL canCreateDirectories;
@property(nullable, copy) NSURL* directoryURL;
- (void)beginWithCompletionHandler:(void (^)(NSModalResponse response))handler;
@end

@interface NSOpenPanel : NSSavePanel
+ (NSOpenPanel*)openPanel;
@property BOOL canChooseDirectories;
@property BOOL canChooseFiles;
@property BOOL allowsMultipleSelection;
@property(readonly, copy) NSArray<NSURL*>* URLs;
@end

// Applications.

@interface NSRunningApplication : NSObject
@property(nullable, readonly, copy) NSString* bundleIdentifier;
@property(nullable, readonly, copy) NSString* localizedName;
@property(readonly) NSApplicationActivationPolicy activationPolicy;
@property(readonly) int processIdentifier;
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier;
- (BOOL)hide;      // for tests
- (BOOL)terminate; // for tests
@end

extern "C" NSNotificationName const NSWorkspaceDidActivateApplicationNotification;
extern "C" NSNotificationName const NSWorkspaceDidLaunchApplicationNotification;
extern "C" NSNotificationName const NSWorkspaceDidUnhideApplicationNotification;
extern "C" NSString* const NSWorkspaceApplicationKey;

API_AVAILABLE(macos(10.15))
@interface NSWorkspaceOpenConfiguration : NSObject
+ (instancetype)configuration;
@property BOOL activates;
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@property(readonly, copy) NSArray<NSRunningApplication*>* runningApplications;
@property(nullable, readonly, strong) NSRunningApplication* frontmostApplication;
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
- (NSImage*)iconForFile:(NSString*)path;
- (BOOL)openURL:(NSURL*)url;
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^_Nullable)(NSRunningApplication* _Nullable app,
                                                NSError* _Nullable error))completionHandler
    API_AVAILABLE(macos(10.15));
@end

// Events, screens, the cursor.

typedef NS_ENUM(NSUInteger, NSEventType) {
    NSEventTypeLeftMouseDown = 1,
    NSEventTypeLeftMouseUp = 2,
    NSEventTypeRightMouseDown = 3,
    NSEventTypeKeyUp = 11,
    NSEventTypeFlagsChanged = 12,
    NSEventTypeOtherMouseDown = 25
};
typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskAny = ~0ULL,
    NSEventMaskLeftMouseDown = 1ULL << NSEventTypeLeftMouseDown,
    NSEventMaskLeftMouseUp = 1ULL << NSEventTypeLeftMouseUp,
    NSEventMaskRightMouseDown = 1ULL << NSEventTypeRightMouseDown,
    NSEventMaskKeyUp = 1ULL << NSEventTypeKeyUp,
    NSEventMaskOtherMouseDown = 1ULL << NSEventTypeOtherMouseDown
};
typedef NS_OPTIONS(NSUInteger, NSEventModifierFlags) {
    NSEventModifierFlagCapsLock = 1 << 16,
    NSEventModifierFlagShift = 1 << 17,
    NSEventModifierFlagControl = 1 << 18,
    NSEventModifierFlagOption = 1 << 19,
    NSEventModifierFlagCommand = 1 << 20,
    NSEventModifierFlagFunction = 1 << 23
};

@interface NSEvent : NSObject
@property(readonly) NSEventType type;
@property(readonly) NSEventModifierFlags modifierFlags;
@property(readonly) NSTimeInterval timestamp;
+ (nullable id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask
                                             handler:(void (^)(NSEvent* event))handler;
+ (void)removeMonitor:(id)eventMonitor;
@property(class, readonly) NSEventModifierFlags modifierFlags;
@property(nullable, readonly, weak) NSWindow* window;
@property(readonly) NSPoint locationInWindow;
@property(readonly) unsigned short keyCode;
@property(readonly, getter=isARepeat) BOOL ARepeat;
+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                            handler:(NSEvent* _Nullable (^)(NSEvent* event))handler;
@end

@interface NSApplication (NSEvent)
- (void)sendEvent:(NSEvent*)event;
- (nullable NSEvent*)nextEventMatchingMask:(NSEventMask)mask
                                 untilDate:(nullable NSDate*)expiration
                                    inMode:(NSRunLoopMode)mode
                                   dequeue:(BOOL)isDequeued;
@end

typedef NS_ENUM(int32_t, NSWindowDepth) { NSWindowDepthTwentyfourBitRGB = 0x208 };
extern "C" NSInteger NSBitsPerPixelFromDepth(NSWindowDepth depth);
typedef NSString* NSDeviceDescriptionKey;

@interface NSScreen : NSObject
@property(class, readonly, copy) NSArray<NSScreen*>* screens;
@property(class, nullable, readonly, strong) NSScreen* mainScreen;
@property(class, nullable, readonly, strong) NSScreen* deepestScreen;
@property(readonly) NSWindowDepth depth;
@property(readonly) NSRect frame;
@property(readonly) NSRect visibleFrame;
@property(readonly, copy) NSDictionary<NSDeviceDescriptionKey, id>* deviceDescription;
@end

@interface NSCursor : NSObject
@property(class, nullable, readonly, strong)
    NSCursor* currentSystemCursor API_DEPRECATED("", macos(10.6, 15.0));
@property(readonly) NSPoint hotSpot;
@end

// Images.

typedef NS_ENUM(NSUInteger, NSCompositingOperation) { NSCompositingOperationCopy = 1 };
typedef NSString* NSImageName;
typedef struct OpaqueIconRef* IconRef; // HIServices

@interface NSImageSymbolConfiguration : NSObject
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize
                                    weight:(NSFontWeight)weight API_AVAILABLE(macos(11.0));
@end

@interface NSImage : NSObject <NSCopying>
- (void)setTemplate:(BOOL)isTemplate; // A property in the SDK, whose name is a word of C++.
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description API_AVAILABLE(macos(11.0));
@property NSSize size;
@property(nullable, readonly, copy) NSData* TIFFRepresentation;
+ (nullable NSImage*)imageNamed:(NSImageName)name;
- (instancetype)initWithSize:(NSSize)size;
- (nullable instancetype)initWithContentsOfURL:(NSURL*)url;
- (instancetype)initWithIconRef:(IconRef)iconRef API_DEPRECATED("", macos(10.5, 11.0));
- (void)lockFocus API_DEPRECATED("", macos(10.0, 27.0));
- (void)unlockFocus API_DEPRECATED("", macos(10.0, 27.0));
- (void)drawInRect:(NSRect)destination
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)fraction;
@end

#pragma clang assume_nonnull end
