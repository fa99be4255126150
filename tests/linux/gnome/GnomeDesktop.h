#pragma once

#include <string>

#include "settings/Maker.h"
#include "virtual-desktop/GnomeServer.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

/// A home, and GNOME Shell with our extension in it. It takes seconds to start, so there is one for all tests
/// of a program, which leave it as they found it.
struct GnomeDesktop {
    static GnomeDesktop& shared() {
        static GnomeDesktop desktop;
        return desktop;
    }

    static QString uuid() { return QString::fromStdString(std::string(maker::shellExtension)); }

    /// Replaces the input sources, and selects the first one: "('xkb','us'),('ibus','libpinyin')".
    bool haveSources(const QString& sources) {
        GnomeServer::set("org.gnome.desktop.input-sources", "sources", "[" + sources + "]");
        return waitUntil([&] {
            const auto ids = server.evaluate(
                "Object.values(imports.ui.status.keyboard.getInputSourceManager().inputSources)"
                ".map(s => `('${s.type}','${s.id}')`).join(',')");
            if (ids.toString() != sources) return false;
            server.selectLayout(0);
            return server.layout() == 0;
        });
    }

    QJsonValue manage(const QString& function) {
        return server.evaluate("imports.ui.main.extensionManager." + function + "('" + uuid() + "')");
    }

    ScratchFolders folders;
    GnomeServer server{{{QUORVANE_SHELL_EXTENSION_FOLDER, uuid()}}};
};

inline const QString usual = "('xkb','us'),('xkb','ru'),('xkb','de')";

} // namespace quorvane
