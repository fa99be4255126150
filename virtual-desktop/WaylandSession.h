#pragma once

#include <memory>
#include <string>
#include <vector>

#include "virtual-desktop/GnomeServer.h"
#include "virtual-desktop/KWinServer.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/SwayServer.h"

namespace quorvane {

/// A home and a Wayland compositor in it, by its name: "sway", "kwin" or "gnome", which has these
/// extensions.
struct WaylandSession {
    explicit WaylandSession(const std::string& compositor,
                            const std::vector<GnomeServer::Extension>& extensions = {}) {
        if (compositor == "sway") server = std::make_unique<SwayServer>();
        if (compositor == "kwin") server = std::make_unique<KWinServer>();
        if (compositor == "gnome") server = std::make_unique<GnomeServer>(extensions);
    }

    ScratchFolders folders;
    std::unique_ptr<WaylandServer> server;
};

} // namespace quorvane
