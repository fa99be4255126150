#pragma once

#include <string_view>

#include "platform/Desktop.h"
#include "platform/Links.h"
#include "platform/WallClock.h"

namespace quorvane {

/// The addresses behind the window's links, each by the name of its action.
class PreferencesLinks {
public:
    /// `facts` tell where reviews are written, and where the help is that stands in for a maker's web pages
    /// as long as there are none; they must outlive this object.
    PreferencesLinks(Links& links, const WallClock& clock, const DesktopFacts& facts, bool makerHasWebsite)
        : links_(links)
        , clock_(clock)
        , facts_(facts)
        , makerHasWebsite_(makerHasWebsite) {}

    /// Nothing for a name that is no link's.
    void open(std::string_view action);

private:
    Links& links_;
    const WallClock& clock_;
    const DesktopFacts& facts_;
    bool makerHasWebsite_;
};

} // namespace quorvane
