#pragma once

// The part of Application Services that the macOS desktop uses, declared anew, for checks on other systems:
// public SDK documentation, and the Rust bindings objc2-application-services.

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

Boolean AXIsProcessTrusted();

} // extern "C"
