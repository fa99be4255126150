#import "platform/macos/appkit/MacImages.h"

#import "platform/macos/appkit/MacImage.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

ImageRef MacImages::imageWithContentsOfURL(std::string_view url) const {
    NSString* text = toNSString(url);
    NSURL* location = text ? [NSURL URLWithString:text] : nil;
    // Another address would be fetched from the network while everything waits.
    if (!location.fileURL) return nullptr;
    return MacImage::make([[NSImage alloc] initWithContentsOfURL:location]);
}

ImageRef MacImages::imageNamed(std::string_view name) const {
    NSString* text = toNSString(name);
    return text ? MacImage::make([NSImage imageNamed:text]) : nullptr;
}

ImageRef MacImages::imageOfIcon(IconRef icon) {
    if (!icon) return nullptr;
// The only way to make a picture of such an icon, which the input sources still have.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
    return MacImage::make([[NSImage alloc] initWithIconRef:icon]);
#pragma clang diagnostic pop
}

} // namespace quorvane
