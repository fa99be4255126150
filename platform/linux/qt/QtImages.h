#pragma once

#include <string>

#include "platform/Image.h"

namespace quorvane {

/// Pictures from files and from the program's own resources.
class QtImages : public Images {
public:
    ImageRef imageWithContentsOfURL(std::string_view url) const override;
    ImageRef imageNamed(std::string_view name) const override;
};

/// The template icon of a keyboard layout: its letters, 18 by 18 points.
ImageRef drawLettersIcon(const std::string& letters);

} // namespace quorvane
