#pragma once

#include "platform/linux/desktop-files/LauncherTable.h"

namespace quorvane {

/// The launcher that runs, by the programs of this user's processes; of several the one that was probably
/// started last. Null when none runs. Looks at every process: one to three milliseconds.
const KnownLauncher* runningLauncher();

} // namespace quorvane
