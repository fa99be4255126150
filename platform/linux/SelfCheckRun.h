#pragma once

#include "platform/linux/OpenedSession.h"

namespace quorvane {

/// Prints what this desktop answers, instead of running the program, which may run meanwhile. Returns the
/// process's status.
int runSelfCheck(const OpenedSession& session);

} // namespace quorvane
