#pragma once

// Image I/O and the pictures of Core Graphics: the public SDK documentation.

#include <CoreFoundation/CoreFoundation.h>

#pragma clang assume_nonnull begin
#ifdef __cplusplus
extern "C" {
#endif

typedef const struct OpaqueCFData* CFDataRef;
typedef struct CGImageSource* CGImageSourceRef;
typedef struct CGImage* CGImageRef;
typedef struct CGDataProvider* CGDataProviderRef;

CGImageSourceRef _Nullable CGImageSourceCreateWithData(CFDataRef data, CFDictionaryRef _Nullable options);
CGImageRef _Nullable CGImageSourceCreateImageAtIndex(CGImageSourceRef source, size_t index,
                                                     CFDictionaryRef _Nullable options);
CGDataProviderRef _Nullable CGImageGetDataProvider(CGImageRef _Nullable image);
CFDataRef _Nullable CGDataProviderCopyData(CGDataProviderRef _Nullable provider);

#ifdef __cplusplus
}
#endif
#pragma clang assume_nonnull end
