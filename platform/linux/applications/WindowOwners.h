#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "platform/Signal.h"
#include "platform/linux/applications/WindowFacts.h"
#include "platform/linux/applications/WindowId.h"
#include "platform/linux/desktop-files/DesktopEntries.h"
#include "platform/linux/desktop-files/LauncherTable.h"

namespace quorvane {

/// The application a window belongs to.
struct WindowOwner {
    std::optional<std::string> id;      ///< A desktop-file id where there is one, see below. Never empty.
    std::string name;                   ///< In the user's language.
    std::optional<std::string> otherId; ///< By which the settings may know it, too.
    int pid = 0;                        ///< 0 when the session does not tell.
    std::string recognisedBy;           ///< What told its id, in English: `its class "kate"`.
    bool isThisProcess = false;
    bool isPartOfDesktop = false;            ///< The window is a panel or the desktop's background.
    const KnownLauncher* launcher = nullptr; ///< If it is one; id and name are the launcher's then.
};

/// Which application each window belongs to, told from what is known of the window.
///
/// Its id is the first of these that is the id of an installed desktop file:
///   1. `_GTK_APPLICATION_ID`;
///   2. `_KDE_NET_WM_DESKTOP_FILE`, or the file that a Wayland compositor knows it by;
///   3. the process's name inside Flatpak;
///   4. the process's name inside Snap;
///   5. the file whose StartupWMClass is the class, then the instance, of WM_CLASS;
///   6. the file whose id is the class, then the instance: exactly, then without regard to case, then the
///      last part of a reverse-DNS id;
///   7. the file whose Exec starts the process's program, then the one whose id is that program's name.
/// Without a desktop file it is the first of these that is not empty: 1, 2, 3, the class, but as the program
/// spells it (ProgramNames.h), the instance, the id of another window of the same process, the program's
/// name. These, too, are the same at every start. A program that an interpreter runs is the script.
///
/// A window of which none of this is known, for instance one of another computer's programs, has no id.
///
/// Windows of this process have its own id.
class WindowOwners {
public:
    explicit WindowOwners(DesktopEntries& entries) : entries_(entries) {}
    WindowOwners(const WindowOwners&) = delete;
    WindowOwners& operator=(const WindowOwners&) = delete;

    /// Kept until the window is forgotten, or identified again.
    const WindowOwner& identify(WindowId window, const WindowFacts& facts);

    void forget(WindowId window) { owners_.erase(window); }

    /// Null for one that was not identified. Valid until control returns to the event loop.
    const WindowOwner* ownerOf(WindowId window) const;

    DesktopEntries& entries() const { return entries_; }

    /// A window has been identified whose application has another id than its class.
    Signal<const std::string& /*wmClass*/, const std::string& /*id*/> renamed;

private:
    WindowOwner ownerBy(const WindowFacts& facts) const;
    /// An installed application, and what told that it is the one.
    struct Installed {
        DesktopEntryRef entry;
        std::string by;
    };
    Installed installed(const WindowFacts& facts, const std::string& flatpakId,
                        const std::string& program) const;
    std::optional<std::string> idOfSameProcess(int pid) const;

    DesktopEntries& entries_;
    std::unordered_map<WindowId, WindowOwner> owners_;
};

} // namespace quorvane
