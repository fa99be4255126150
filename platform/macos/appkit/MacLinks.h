#pragma once

#include "platform/Links.h"

namespace quorvane {

/// Addresses are opened by the application that the user has chosen for them.
class MacLinks : public Links {
public:
    void openURL(std::string_view url) override;
};

} // namespace quorvane
