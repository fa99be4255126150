#pragma once

#include "platform/LoginItems.h"

namespace quorvane {

/// Login items that are helper applications inside this application's bundle.
class MacLoginItems : public LoginItems {
public:
    bool setEnabled(std::string_view identifier, bool enabled) override;
    std::optional<bool> isEnabled(std::string_view identifier) const override;
};

} // namespace quorvane
