#pragma once

// The part of Core Graphics that the macOS desktop uses, declared anew, for checks on other systems.

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

// Geometry: public SDK documentation.
using CGFloat = double;
struct CGPoint {
    CGFloat x;
    CGFloat y;
};
struct CGSize {
    CGFloat width;
    CGFloat height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};
using CGColorRef = struct CGColor*;
bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dictionary, CGRect* rect);

// Drawing into memory: public SDK documentation, constants from the metadata of PyObjC.
using CGContextRef = struct CGContext*;
using CGColorSpaceRef = struct CGColorSpace*;
enum CGImageAlphaInfo : std::uint32_t { kCGImageAlphaPremultipliedLast = 1 };
extern const CFStringRef kCGColorSpaceSRGB;
CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name);
CGContextRef CGBitmapContextCreate(void* data, std::size_t width, std::size_t height,
                                   std::size_t bitsPerComponent, std::size_t bytesPerRow,
                                   CGColorSpaceRef space, std::uint32_t bitmapInfo);

// The window list: public SDK documentation, constants from the metadata of PyObjC.
using CGWindowID = std::uint32_t;
using CGWindowListOption = std::uint32_t;
enum : CGWindowListOption { kCGWindowListOptionOnScreenOnly = 1 };
constexpr CGWindowID kCGNullWindowID = 0;
CFArrayRef CGWindowListCreate(CGWindowListOption option, CGWindowID relativeToWindow);
CFArrayRef CGWindowListCreateDescriptionFromArray(CFArrayRef windows);
extern const CFStringRef kCGWindowOwnerName;
extern const CFStringRef kCGWindowName;
extern const CFStringRef kCGWindowBounds;
extern const CFStringRef kCGWindowLayer;
extern const CFStringRef kCGWindowIsOnscreen;

// What the user allows: public SDK documentation, and the metadata of PyObjC.
bool CGPreflightListenEventAccess();
bool CGPreflightScreenCaptureAccess();

} // extern "C"
