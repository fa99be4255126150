#pragma once

#include <QDBusConnection>

namespace quorvane {

/// The user's session bus. Says so in one line when there is none; everything on it is then without effect.
QDBusConnection sessionBus();

} // namespace quorvane
