#pragma once

#include <algorithm>
#include <string>

#include <QString>

#include "settings/Maker.h"

// Where on the session bus the running program takes commands.
namespace quorvane::control_address {

inline QString service() {
    return QString::fromStdString(std::string(maker::bundleIdentifier));
}

inline QString path() {
    return "/" + service().replace('.', '/').replace('-', '_');
}

inline QString interface() {
    return service() + ".Control";
}

// Run(as arguments, a{sv} document) -> (i status, v document): the command, and what stands behind it.
inline const QString runMethod = QStringLiteral("Run");

// Decided(a{sv} decision)
inline const QString decidedSignal = QStringLiteral("Decided");

/// The entry of the document argument under which what a command works on stands.
inline const QString documentEntry = QStringLiteral("document");

} // namespace quorvane::control_address
