#pragma once

#include <memory>
#include <string>

#include "virtual-desktop/GnomeServer.h"
#include "virtual-desktop/KWinServer.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/SwayServer.h"

namespace quorvane {

/// A home and a Wayland compositor in it, by its name: "sway", "kwin" or "gnome".
struct WaylandSession {
    explicit WaylandSession(const std::string& compositor) {
        if (compositor == "sway") server = std::make_unique<SwayServer>();
        if (compositor == "kwin") server = std::make_unique<KWinServer>();
        if (compositor == "gnome") server = std::make_unique<GnomeServer>();
    }

    ScratchFolders folders;
    std::unique_ptr<WaylandServer> server;
};

} // namespace quorvane
