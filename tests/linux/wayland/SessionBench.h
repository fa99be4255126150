#pragma once

#include <list>
#include <map>
#include <memory>
#include <optional>

#include <QFile>

#include "platform/linux/session/Session.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/WaylandServer.h"
#include "virtual-desktop/WaylandWindow.h"

namespace quorvane {

/// A compositor, the program's session on it, and what its user does that differs from the others.
class SessionDesktop {
public:
    virtual ~SessionDesktop() = default;

    virtual WaylandServer& server() = 0;
    virtual SessionParts parts() = 0;
    virtual void minimise(const QString& applicationId) = 0;
    virtual void setLayouts(const QByteArray& layouts, const QByteArray& variants) = 0;
    virtual void takeKeys(const KeyCombination& combination) = 0;
    virtual void endSession() = 0;
    virtual bool
    hasOurs() = 0; ///< Whether there is something of the session's in the compositor, such as F5.

    /// The compositor has done what the session has asked for so far.
    virtual void settle() = 0;

    ScratchFolders folders;
    DesktopEntries entries = DesktopEntries::ofEnvironment();
    SessionApplications applications{entries, nullptr};
};

using MakeDesktop = std::function<std::unique_ptr<SessionDesktop>()>;

} // namespace quorvane
