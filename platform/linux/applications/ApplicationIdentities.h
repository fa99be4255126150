#pragma once

#include <optional>
#include <span>
#include <string>
#include <unordered_map>

#include "platform/Signal.h"
#include "platform/linux/applications/WindowFacts.h"
#include "platform/linux/desktop-files/DesktopEntries.h"
#include "platform/linux/desktop-files/LauncherTable.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The application a window belongs to.
struct WindowOwner {
    std::optional<std::string> id;      ///< A desktop-file id where there is one, see below. Never empty.
    std::string name;                   ///< In the user's language.
    std::optional<std::string> otherId; ///< By which the settings may know it, too.
    int pid = 0;                        ///< 0 when the server does not tell.
    std::string recognisedBy;           ///< What told its id, in English: `its class "kate"`.
    bool isThisProcess = false;
    bool isPartOfDesktop = false;            ///< The window is a panel or the desktop's background.
    const KnownLauncher* launcher = nullptr; ///< If it is one; id and name are the launcher's then.
};

/// Finds out which application a window belongs to.
///
/// Its id is the first of these that is the id of an installed desktop file:
///   1. `_GTK_APPLICATION_ID`;
///   2. `_KDE_NET_WM_DESKTOP_FILE`;
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
///
/// What has been found is kept until the window is destroyed or says something else: whoever wants to know of
/// that must register with the connection after this object was made.
class ApplicationIdentities {
public:
    ApplicationIdentities(XConnection& x, DesktopEntries& entries);
    ApplicationIdentities(const ApplicationIdentities&) = delete;
    ApplicationIdentities& operator=(const ApplicationIdentities&) = delete;

    /// What `ownerOf` needs to know of all these windows, in one round trip. From now on, the connection gets
    /// their property, structure and focus events.
    void learn(std::span<const xcb_window_t> windows);

    /// Null for a window that has vanished. No round trip for a known window. The pointer is valid until
    /// control returns to the event loop.
    const WindowOwner* ownerOf(xcb_window_t window);

    /// True if the property takes part in finding a window's application.
    bool isIdentifying(xcb_atom_t property) const;

    DesktopEntries& entries() { return entries_; }

    /// A window has been identified whose application has another id than its class.
    Signal<const std::string& /*wmClass*/, const std::string& /*id*/> renamed;

private:
    void handle(const xcb_generic_event_t& event);
    WindowOwner identify(const WindowFacts& facts);
    /// An installed application, and what told that it is the one.
    struct Installed {
        DesktopEntryRef entry;
        std::string by;
    };
    Installed installed(const WindowFacts& facts, const std::string& flatpakId, const std::string& program);
    std::optional<std::string> idOfSameProcess(int pid) const;

    XConnection& x_;
    DesktopEntries& entries_;
    std::unordered_map<xcb_window_t, WindowOwner> owners_;
    Subscription events_;
};

} // namespace quorvane
