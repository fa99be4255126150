#include "platform/macos/appkit/MacApplicationBundles.h"

#import "platform/macos/appkit/MacImage.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

std::optional<std::string>
MacApplicationBundles::absolutePathForAppBundle(std::string_view bundleIdentifier) const {
    NSString* identifier = toNSString(bundleIdentifier);
    if (!identifier) return std::nullopt;
    NSString* path = [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:identifier].path;
    return path ? std::optional(fromNSString(path)) : std::nullopt;
}

std::string MacApplicationBundles::displayNameAtPath(std::string_view path) const {
    NSString* file = toNSString(path);
    return file ? fromNSString([NSFileManager.defaultManager displayNameAtPath:file]) : std::string(path);
}

ImageRef MacApplicationBundles::iconForFile(std::string_view path) const {
    NSString* file = toNSString(path);
    // The system has an icon even for files that are not there.
    if (!file || ![NSFileManager.defaultManager fileExistsAtPath:file]) return nullptr;
    return MacImage::make([NSWorkspace.sharedWorkspace iconForFile:file]);
}

} // namespace quorvane
