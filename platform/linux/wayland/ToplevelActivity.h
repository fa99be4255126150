#pragma once

#include <set>

#include "platform/Signal.h"
#include "platform/linux/wayland/WaylandDisplay.h"

struct zwlr_foreign_toplevel_manager_v1;
struct zwlr_foreign_toplevel_handle_v1;

namespace quorvane {

/// Tells that another window is the active one, or that none is any more: as compositors tell task bars. A
/// launcher above all windows takes that from the window that had it. Without the protocol nothing is told.
class ToplevelActivity {
public:
    /// Made before the display tells what there is, and must not outlive it.
    explicit ToplevelActivity(WaylandDisplay& display);
    ~ToplevelActivity();
    ToplevelActivity(const ToplevelActivity&) = delete;
    ToplevelActivity& operator=(const ToplevelActivity&) = delete;

    Signal<> changed;

    // What the compositor tells.
    void opened(zwlr_foreign_toplevel_handle_v1* window);
    void becameActive(zwlr_foreign_toplevel_handle_v1* window, bool isActive);
    void closed(zwlr_foreign_toplevel_handle_v1* window);
    void finished();

private:
    zwlr_foreign_toplevel_manager_v1* manager_ = nullptr;
    std::set<zwlr_foreign_toplevel_handle_v1*> windows_;
    zwlr_foreign_toplevel_handle_v1* active_ = nullptr;
    Subscription offers_;
};

} // namespace quorvane
