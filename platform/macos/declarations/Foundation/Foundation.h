#pragma once

// Declarations of what this program calls, and of no more. Where nothing else is said, they are those of the
// public SDK documentation.

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>
#include <dispatch/dispatch.h>

// os/availability.h, for one system only.
#define AVAILABLE_macos(from) macos, introduced = from
#define DEPRECATED_macos(from, to) macos, introduced = from, deprecated = to
#define API_AVAILABLE(system) __attribute__((availability(AVAILABLE_##system)))
#define API_DEPRECATED(text, system) __attribute__((availability(DEPRECATED_##system, message = text)))

#pragma clang assume_nonnull begin

// objc/objc.h. One byte, which is a bool on arm64 and a signed character on x86_64.
#if __OBJC_BOOL_IS_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#define YES __objc_yes
#define NO __objc_no
#ifndef nil
#define nil nullptr
#define Nil nullptr
#endif

// In C++, an enumeration is a type of its own, and options are whole numbers.
#define NS_ENUM(type, name)                                                                                  \
    enum name : type name;                                                                                   \
    enum name : type
#define NS_OPTIONS(type, name)                                                                               \
    type name;                                                                                               \
    enum : type

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef double NSTimeInterval;
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;
typedef struct {
    CGFloat top, left, bottom, right;
} NSEdgeInsets;

static const NSRect NSZeroRect = {{0, 0}, {0, 0}};
static inline NSPoint NSMakePoint(CGFloat x, CGFloat y) {
    NSPoint point = {x, y};
    return point;
}
static inline NSEdgeInsets NSEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
    NSEdgeInsets insets = {top, left, bottom, right};
    return insets;
}
extern "C" BOOL NSIntersectsRect(NSRect aRect, NSRect bRect);
extern "C" BOOL NSPointInRect(NSPoint aPoint, NSRect aRect);
extern "C" NSRect NSInsetRect(NSRect aRect, CGFloat dX, CGFloat dY);
static inline NSSize NSMakeSize(CGFloat width, CGFloat height) {
    NSSize size = {width, height};
    return size;
}
static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    NSRect rect = {{x, y}, {width, height}};
    return rect;
}

@class NSArray<ObjectType>;
@class NSDate;
@class NSDictionary<KeyType, ObjectType>;
@class NSError;
@class NSNotification;
@class NSOperationQueue;
@class NSString;
@class NSURL;

typedef struct _NSZone NSZone;

@protocol NSObject
- (BOOL)isKindOfClass:(Class)aClass;
- (Class)class;
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject>
+ (instancetype)alloc;
- (instancetype)init;
- (id)copy;
+ (Class)class;
@end

@protocol NSCopying
- (id)copyWithZone:(nullable NSZone*)zone;
@end

typedef struct {
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)length;
@end

// Values.

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

@interface NSData : NSObject
@property(readonly) NSUInteger length;
@property(readonly) const void* bytes __attribute__((objc_returns_inner_pointer));
+ (instancetype)dataWithBytes:(nullable const void*)bytes length:(NSUInteger)length;
@end

@interface NSString : NSObject <NSCopying>
- (nullable instancetype)initWithBytes:(const void*)bytes
                                length:(NSUInteger)length
                              encoding:(NSStringEncoding)encoding;
- (nullable NSData*)dataUsingEncoding:(NSStringEncoding)encoding;
- (BOOL)isEqualToString:(NSString*)string;
@property(readonly) NSUInteger length;
@end

@interface NSNumber : NSObject
+ (NSNumber*)numberWithBool:(BOOL)value;
+ (NSNumber*)numberWithLongLong:(long long)value;
+ (NSNumber*)numberWithDouble:(double)value;
@property(readonly) const char* objCType __attribute__((objc_returns_inner_pointer));
@property(readonly) double doubleValue;
@property(readonly) long long longLongValue;
@property(readonly) unsigned long long unsignedLongLongValue;
@end

@interface NSDate : NSObject
+ (instancetype)dateWithTimeIntervalSinceNow:(NSTimeInterval)seconds;
+ (instancetype)dateWithTimeIntervalSinceReferenceDate:(NSTimeInterval)seconds;
@property(readonly) NSTimeInterval timeIntervalSinceReferenceDate;
@end

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nullable])objects count:(NSUInteger)count;
@property(readonly) NSUInteger count;
@property(nullable, nonatomic, readonly) ObjectType firstObject;
- (ObjectType)objectAtIndexedSubscript:(NSUInteger)index;
@end

@interface NSMutableArray<ObjectType> : NSArray <ObjectType>
+ (instancetype)array;
- (void)addObject:(ObjectType)object;
@end

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject <NSFastEnumeration>
+ (nullable NSDictionary<NSString*, ObjectType>*)
    dictionaryWithContentsOfURL:(NSURL*)url
                          error:(NSError* _Nullable* _Nullable)error API_AVAILABLE(macos(10.13));
- (nullable ObjectType)objectForKey:(KeyType)key;
- (nullable ObjectType)objectForKeyedSubscript:(KeyType)key;
+ (instancetype)dictionaryWithObjects:(const ObjectType _Nonnull[_Nullable])objects
                              forKeys:(const KeyType<NSCopying> _Nonnull[_Nullable])keys
                                count:(NSUInteger)count;
@end

@interface NSMutableDictionary<KeyType, ObjectType> : NSDictionary <KeyType, ObjectType>
+ (instancetype)dictionary;
- (void)setObject:(nullable ObjectType)object forKeyedSubscript:(KeyType<NSCopying>)key;
@end

@interface NSError : NSObject
@property(readonly) NSInteger code;
@property(readonly, copy) NSString* localizedDescription;
@end

@interface NSURL : NSObject
+ (nullable instancetype)URLWithString:(NSString*)string;
+ (NSURL*)fileURLWithPath:(NSString*)path;
@property(nullable, readonly, copy) NSURL* URLByDeletingLastPathComponent;
- (nullable NSURL*)URLByAppendingPathComponent:(NSString*)component;
@property(nullable, readonly, copy) NSString* path;
@property(nullable, readonly, copy) NSString* absoluteString;
@property(readonly, getter=isFileURL) BOOL fileURL;
@end

typedef NS_OPTIONS(NSUInteger, NSPropertyListMutabilityOptions) { NSPropertyListImmutable = 0 };
typedef NS_ENUM(NSUInteger, NSPropertyListFormat) { NSPropertyListXMLFormat_v1_0 = 100 };

@interface NSPropertyListSerialization : NSObject
+ (nullable id)propertyListWithData:(NSData*)data
                            options:(NSPropertyListMutabilityOptions)options
                             format:(nullable NSPropertyListFormat*)format
                              error:(NSError* _Nullable* _Nullable)error;
@end

extern "C" SEL NSSelectorFromString(NSString* selectorName);
extern "C" void NSLog(NSString* format, ...) __attribute__((format(__NSString__, 1, 2)));

// The process and its files.

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
+ (nullable NSBundle*)bundleWithIdentifier:(NSString*)identifier;
@property(readonly, copy) NSString* bundlePath;
@property(readonly, copy) NSURL* bundleURL;
- (NSString*)localizedStringForKey:(NSString*)key
                             value:(nullable NSString*)value
                             table:(nullable NSString*)table;
@property(nullable, readonly, copy) NSDictionary<NSString*, id>* infoDictionary;
- (nullable id)objectForInfoDictionaryKey:(NSString*)key;
@end

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager* defaultManager;
- (NSString*)displayNameAtPath:(NSString*)path;
- (BOOL)fileExistsAtPath:(NSString*)path;
@end

typedef NS_OPTIONS(uint64_t, NSActivityOptions) {
    NSActivityUserInitiatedAllowingIdleSystemSleep = 0x00FFFFFFULL & ~(1ULL << 20)
};

@interface NSProcessInfo : NSObject
@property(readonly, copy) NSString* processName;
@property(readonly, copy) NSString* operatingSystemVersionString;
@property(class, readonly, strong) NSProcessInfo* processInfo;
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason;
- (void)endActivity:(id<NSObject>)activity;
@end

@interface NSTask : NSObject
@property(nullable, copy) NSURL* executableURL API_AVAILABLE(macos(10.13));
@property(nullable, copy) NSArray<NSString*>* arguments;
- (BOOL)launchAndReturnError:(NSError* _Nullable* _Nullable)error API_AVAILABLE(macos(10.13));
@end

@interface NSThread : NSObject
@property(class, readonly) BOOL isMainThread;
@end

// Run loop and timers.

typedef NSString* NSRunLoopMode;
extern "C" NSRunLoopMode const NSDefaultRunLoopMode;
extern "C" NSRunLoopMode const NSRunLoopCommonModes;

@interface NSTimer : NSObject
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer* timer))block API_AVAILABLE(macos(10.12));
- (void)invalidate;
@end

@interface NSRunLoop : NSObject
@property(class, readonly, strong) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode;
- (void)performInModes:(NSArray<NSRunLoopMode>*)modes block:(void (^)(void))block API_AVAILABLE(macos(10.12));
@end

// Notifications.

typedef NSString* NSNotificationName;

@interface NSNotification : NSObject
@property(readonly, copy) NSNotificationName name;
@property(nullable, readonly, strong) id object;
@property(nullable, readonly, copy) NSDictionary* userInfo;
@end

@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)object
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer;
- (void)addObserver:(id)observer
           selector:(SEL)selector
               name:(nullable NSNotificationName)name
             object:(nullable id)object;
@end

typedef NS_ENUM(NSUInteger, NSNotificationSuspensionBehavior) {
    NSNotificationSuspensionBehaviorDeliverImmediately = 4
};

typedef NS_OPTIONS(NSUInteger, NSDistributedNotificationOptions) {
    NSDistributedNotificationDeliverImmediately = 1,
    NSDistributedNotificationPostToAllSessions = 2
};

@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter;
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(nullable NSNotificationName)name
                object:(nullable NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)suspensionBehavior;
- (void)postNotificationName:(NSNotificationName)name
                      object:(nullable NSString*)object
                    userInfo:(nullable NSDictionary*)userInfo
                     options:(NSDistributedNotificationOptions)options;
@end

// Key-value observing.

typedef NS_OPTIONS(NSUInteger, NSKeyValueObservingOptions) { NSKeyValueObservingOptionNew = 1 };

typedef NSString* NSKeyValueChangeKey;
extern "C" NSKeyValueChangeKey const NSKeyValueChangeNewKey;

@interface NSObject (NSKeyValueObserving)
- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context;
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(nullable void*)context;
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath context:(nullable void*)context;
@end

// The user's defaults.

@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
- (nullable instancetype)initWithSuiteName:(nullable NSString*)suiteName;
- (nullable id)objectForKey:(NSString*)key;
- (void)setObject:(nullable id)value forKey:(NSString*)key;
- (void)addSuiteNamed:(NSString*)suiteName;
- (nullable NSDictionary<NSString*, id>*)persistentDomainForName:(NSString*)domainName;
- (BOOL)synchronize;
@end

// Archives.

@protocol NSSecureCoding
@end

@interface NSIndexSet : NSObject <NSSecureCoding>
+ (instancetype)indexSetWithIndex:(NSUInteger)value;
@property(readonly) NSUInteger firstIndex;
@end

@interface NSKeyedArchiver : NSObject
+ (nullable NSData*)archivedDataWithRootObject:(id)object
                         requiringSecureCoding:(BOOL)requiresSecureCoding
                                         error:(NSError* _Nullable* _Nullable)error
    API_AVAILABLE(macos(10.13));
@end

@interface NSKeyedUnarchiver : NSObject
+ (nullable id)unarchivedObjectOfClass:(Class)cls
                              fromData:(NSData*)data
                                 error:(NSError* _Nullable* _Nullable)error API_AVAILABLE(macos(10.13));
@end

#pragma clang assume_nonnull end
