#pragma once

#include "platform/Image.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

/// Pictures from files and from the program's own resources.
class MacImages : public Images {
public:
    ImageRef imageWithContentsOfURL(std::string_view url) const override;
    ImageRef imageNamed(std::string_view name) const override;

    /// The picture of an icon, which need not outlive the call; null for null.
    static ImageRef imageOfIcon(IconRef icon);
};

} // namespace quorvane
