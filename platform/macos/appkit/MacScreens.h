#pragma once

#include "platform/Screens.h"

namespace quorvane {

class MacScreens : public Screens {
public:
    std::optional<Screen> mainScreen() const override;
    std::optional<Screen> deepestScreen() const override;
};

} // namespace quorvane
