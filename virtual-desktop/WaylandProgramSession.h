#pragma once

#include "virtual-desktop/ProgramWithRules.h"
#include "virtual-desktop/WaylandSession.h"

namespace quorvane {

/// The program's user's session on Wayland.
class WaylandProgramSession : public WaylandSession, public ProgramWithRules {
public:
    using WaylandSession::WaylandSession;
};

} // namespace quorvane
