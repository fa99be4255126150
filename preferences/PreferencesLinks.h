#pragma once

#include <string_view>

#include "platform/Desktop.h"
#include "platform/Links.h"
#include "platform/WallClock.h"

namespace quorvane {

/// The addresses behind the window's links, each by the name of its action.
class PreferencesLinks {
public:
    /// `facts` tell where reviews are written; they must outlive this object.
    PreferencesLinks(Links& links, const WallClock& clock, const DesktopFacts& facts)
        : links_(links)
        , clock_(clock)
        , facts_(facts) {}

    /// Nothing for a name that is no link's.
    void open(std::string_view action);

private:
    Links& links_;
    const WallClock& clock_;
    const DesktopFacts& facts_;
};

} // namespace quorvane
