#pragma once

// The part of Carbon's HIToolbox that the macOS desktop uses, declared anew, for checks on other systems.

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

// Icons: public SDK documentation. Not a Core Foundation object.
using IconRef = struct OpaqueIconRef*;

// Text Input Sources Services: Rust bindings objc2-carbon.
using TISInputSourceRef = struct OpaqueTISInputSource*;
CFArrayRef TISCreateInputSourceList(CFDictionaryRef properties, Boolean includeAllInstalled);
TISInputSourceRef TISCopyCurrentKeyboardInputSource();
TISInputSourceRef TISCopyCurrentKeyboardLayoutInputSource();
TISInputSourceRef TISCopyCurrentASCIICapableKeyboardLayoutInputSource();
void* TISGetInputSourceProperty(TISInputSourceRef source, CFStringRef key);
OSStatus TISSelectInputSource(TISInputSourceRef source);
extern const CFStringRef kTISPropertyInputSourceID;
extern const CFStringRef kTISPropertyInputSourceCategory;
extern const CFStringRef kTISPropertyInputSourceIsSelectCapable;
extern const CFStringRef kTISPropertyLocalizedName;
extern const CFStringRef kTISPropertyIconRef;
extern const CFStringRef kTISPropertyIconImageURL;
extern const CFStringRef kTISPropertyUnicodeKeyLayoutData;
extern const CFStringRef kTISCategoryKeyboardInputSource;

// Keyboard layouts: Rust bindings objc2-core-services and objc2-carbon.
struct UCKeyboardLayout;
enum { kUCKeyActionDisplay = 3 };
enum { kUCKeyTranslateNoDeadKeysMask = 1 };
UInt8 LMGetKbdType();
OSStatus UCKeyTranslate(const UCKeyboardLayout* layout, UInt16 virtualKeyCode, UInt16 keyAction,
                        UInt32 modifierKeyState, UInt32 keyboardType, OptionBits options,
                        UInt32* deadKeyState, UniCharCount room, UniCharCount* count, UniChar* characters);

// Modifiers: Rust bindings objc2-carbon.
enum { cmdKey = 0x100, shiftKey = 0x200, alphaLock = 0x400, optionKey = 0x800, controlKey = 0x1000 };

// The Carbon Event Manager: Rust bindings objc2-carbon; error codes from public SDK documentation.
using EventRef = struct OpaqueEvent*;
using EventTargetRef = struct OpaqueEventTarget*;
using EventHandlerRef = struct OpaqueEventHandler*;
using EventHandlerCallRef = struct OpaqueEventHandlerCall*;
using EventHandlerUPP = OSStatus (*)(EventHandlerCallRef next, EventRef event, void* userData);
using EventParamName = OSType;
using EventParamType = OSType;
struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};
enum { kEventClassKeyboard = 0x6b657962 }; // 'keyb'
enum { kEventHotKeyPressed = 5 };
enum { kEventParamDirectObject = 0x2d2d2d2d }; // '----'
enum { typeEventHotKeyID = 0x686b6964 };       // 'hkid'
enum { eventNotHandledErr = -9874 };
EventTargetRef GetEventDispatcherTarget();
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount count,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* reference);
OSStatus RemoveEventHandler(EventHandlerRef handler);
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType* actualType, ByteCount room, ByteCount* actualSize, void* data);

// Hot keys: Rust bindings objc2-carbon; error codes from public SDK documentation.
using EventHotKeyRef = struct OpaqueEventHotKey*;
struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};
enum { paramErr = -50, eventHotKeyExistsErr = -9878, eventHotKeyInvalidErr = -9879 };
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef* reference);
OSStatus UnregisterEventHotKey(EventHotKeyRef reference);

} // extern "C"
