#pragma once

#include <string_view>

#include "platform/Links.h"
#include "platform/WallClock.h"

namespace quorvane {

/// The addresses behind the window's links, each by the name of its action.
class PreferencesLinks {
public:
    PreferencesLinks(Links& links, const WallClock& clock) : links_(links), clock_(clock) {}

    /// Nothing for a name that is no link's.
    void open(std::string_view action);

private:
    Links& links_;
    const WallClock& clock_;
};

} // namespace quorvane
