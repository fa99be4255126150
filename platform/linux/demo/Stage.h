#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "virtual-desktop/WaylandProgramSession.h"

namespace quorvane {

/// A virtual Wayland desktop that is nice to look at, with the program at work, and a table on it, in a
/// window, of what happens.
class Stage {
public:
    /// On that compositor: "sway", "kwin" or "gnome". Throws when there is no such.
    explicit Stage(const std::string& compositor);

    /// Here and on the desktop.
    void print(const std::string& line);

    void endProgram(); ///< Throws when it does not end cleanly.

    void addHotKey(const QString& inputSource, const QString& keys);

    /// With time to draw before.
    void savePicture(const QString& name);

    /// Waits until the window is about there.
    void place(const QString& window, const QRect& place);

    /// Of the layouts us, ru and de, as input sources: "xkb:ru".
    std::string source() { return sources.at(server().layout()); }
    bool waitForSource(const std::string& source);

    WaylandServer& server() { return *session_.server; }
    GnomeServer* gnome() { return dynamic_cast<GnomeServer*>(session_.server.get()); }
    bool isSway() { return dynamic_cast<SwayServer*>(session_.server.get()); }
    bool isKWin() { return dynamic_cast<KWinServer*>(session_.server.get()); }
    WaylandProgramSession& session() { return session_; }

private:
    static const std::vector<std::string> sources;

    void paintBackground();
    QString tablePath() const { return session_.folders.home() + "/table"; }

    WaylandProgramSession session_;
    std::optional<RunningProgram> background_;
    std::optional<RunningProgram> table_;
};

} // namespace quorvane
