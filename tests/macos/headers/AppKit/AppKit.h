#pragma once

// Declarations of what this program calls, and of no more. They are those of the public SDK documentation;
// the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@class NSImage;
@class NSWindow;

// The application.

@interface NSApplication : NSObject
@property(class, readonly, strong) NSApplication* sharedApplication;
@property(nullable, readonly) NSWindow* mainWindow;
- (void)activateIgnoringOtherApps:(BOOL)ignore API_DEPRECATED("", macos(10.0, 27.0));
- (void)terminate:(nullable id)sender;
@end

@interface NSWindow : NSObject
@property(getter=isVisible, readonly) BOOL visible;
- (void)makeKeyAndOrderFront:(nullable id)sender;
@end

// Alerts and panels.

typedef NSInteger NSModalResponse;
enum : NSModalResponse { NSModalResponseOK = 1, NSAlertFirstButtonReturn = 1000 };

typedef NSInteger NSControlStateValue;
enum : NSControlStateValue { NSControlStateValueOff = 0, NSControlStateValueOn = 1 };

@interface NSButton : NSObject
@property(copy) NSString* title;
@property(copy) NSString* keyEquivalent;
@property NSControlStateValue state;
@end

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

@interface NSSavePanel : NSWindow
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

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular = 0,
    NSApplicationActivationPolicyAccessory = 1,
    NSApplicationActivationPolicyProhibited = 2
};

@interface NSRunningApplication : NSObject
@property(nullable, readonly, copy) NSString* bundleIdentifier;
@property(nullable, readonly, copy) NSString* localizedName;
@property(readonly) NSApplicationActivationPolicy activationPolicy;
@property(readonly) int processIdentifier;
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier;
@end

extern "C" NSNotificationName const NSWorkspaceDidActivateApplicationNotification;
extern "C" NSNotificationName const NSWorkspaceDidLaunchApplicationNotification;
extern "C" NSNotificationName const NSWorkspaceDidUnhideApplicationNotification;
extern "C" NSString* const NSWorkspaceApplicationKey;

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@property(readonly, copy) NSArray<NSRunningApplication*>* runningApplications;
@property(nullable, readonly, strong) NSRunningApplication* frontmostApplication;
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
- (NSImage*)iconForFile:(NSString*)path;
- (BOOL)openURL:(NSURL*)url;
@end

// Events, screens, the cursor.

typedef NS_ENUM(NSUInteger, NSEventType) { NSEventTypeLeftMouseUp = 2, NSEventTypeFlagsChanged = 12 };
typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskLeftMouseUp = 1ULL << NSEventTypeLeftMouseUp
};
typedef NSUInteger NSEventModifierFlags;

@interface NSEvent : NSObject
@property(readonly) NSEventType type;
@property(readonly) NSEventModifierFlags modifierFlags;
@property(readonly) NSTimeInterval timestamp;
+ (nullable id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask
                                             handler:(void (^)(NSEvent* event))handler;
+ (void)removeMonitor:(id)eventMonitor;
@end

typedef NS_ENUM(int32_t, NSWindowDepth) { NSWindowDepthTwentyfourBitRGB = 0x208 };
extern "C" NSInteger NSBitsPerPixelFromDepth(NSWindowDepth depth);
typedef NSString* NSDeviceDescriptionKey;

@interface NSScreen : NSObject
@property(class, nullable, readonly, strong) NSScreen* mainScreen;
@property(class, nullable, readonly, strong) NSScreen* deepestScreen;
@property(readonly) NSWindowDepth depth;
@property(readonly) NSRect frame;
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

@interface NSImage : NSObject
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
