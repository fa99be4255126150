#pragma once

#include <QString>

// Where GNOME Shell is on the session bus.
namespace quorvane::shell_address {

inline const QString service = QStringLiteral("org.gnome.Shell");
inline const QString path = QStringLiteral("/org/gnome/Shell");
inline const QString extensionsInterface = QStringLiteral("org.gnome.Shell.Extensions");

} // namespace quorvane::shell_address
