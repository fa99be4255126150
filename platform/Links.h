#pragma once

#include <string_view>

namespace quorvane {

/// Addresses that other programs open.
class Links {
public:
    virtual ~Links() = default;

    /// Nothing happens when the address cannot be opened.
    virtual void openURL(std::string_view url) = 0;
};

} // namespace quorvane
