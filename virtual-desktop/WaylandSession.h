#pragma once

#include <memory>
#include <string>
#include <vector>

#include "settings/Maker.h"
#include "virtual-desktop/GnomeServer.h"
#include "virtual-desktop/KWinServer.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/SwayServer.h"

namespace quorvane {

/// What lets the program work in GNOME Shell.
inline std::vector<GnomeServer::Extension> ourExtension() {
    return {{QUORVANE_SHELL_EXTENSION_FOLDER, QString::fromStdString(std::string(maker::shellExtension))}};
}

/// A home and a Wayland compositor in it, by its name: "sway", "kwin" or "gnome".
struct WaylandSession {
    explicit WaylandSession(const std::string& compositor) {
        if (compositor == "sway") server = std::make_unique<SwayServer>();
        if (compositor == "kwin") server = std::make_unique<KWinServer>();
        if (compositor == "gnome") server = std::make_unique<GnomeServer>(ourExtension());
    }

    ScratchFolders folders;
    std::unique_ptr<WaylandServer> server;
};

} // namespace quorvane
