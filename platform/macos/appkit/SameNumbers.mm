#include "platform/Alerts.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/Widgets.h"
#import "platform/macos/AppKit.h"

// Numbers that pass between the program and AppKit as they are.

namespace quorvane {

static_assert(eventMask(EventType::leftMouseUp) == NSEventMaskLeftMouseUp);
static_assert(static_cast<NSEventType>(EventType::flagsChanged) == NSEventTypeFlagsChanged);
static_assert(ModifierFlag::capsLock == NSEventModifierFlagCapsLock);
static_assert(ModifierFlag::shift == NSEventModifierFlagShift);
static_assert(ModifierFlag::control == NSEventModifierFlagControl);
static_assert(ModifierFlag::option == NSEventModifierFlagOption);
static_assert(ModifierFlag::command == NSEventModifierFlagCommand);
static_assert(ModifierFlag::function == NSEventModifierFlagFunction);
static_assert(alertFirstButtonReturn == NSAlertFirstButtonReturn);
static_assert(stateOff == NSControlStateValueOff);
static_assert(stateOn == NSControlStateValueOn);

} // namespace quorvane
