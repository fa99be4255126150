#pragma once

#include <stdexcept>
#include <string>

#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/WaylandSession.h"

namespace quorvane {

/// A home, and GNOME Shell with our extension in it. It takes seconds to start, so there is one for all tests
/// of a program, which leave it as they found it.
struct GnomeDesktop {
    static GnomeDesktop& shared(const QString& sources) {
        static GnomeDesktop desktop;
        if (!desktop.haveSources(sources)) throw std::runtime_error("the shell has other sources");
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
    GnomeServer server{ourExtension()};
};

inline const QString usual = "('xkb','us'),('xkb','ru'),('xkb','de')";

} // namespace quorvane
