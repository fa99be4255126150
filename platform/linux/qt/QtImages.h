#pragma once

#include "platform/Image.h"

namespace quorvane {

/// Pictures from files and from the program's own resources.
class QtImages : public Images {
public:
    ImageRef imageWithContentsOfURL(std::string_view url) const override;
    ImageRef imageNamed(std::string_view name) const override;
};

} // namespace quorvane
