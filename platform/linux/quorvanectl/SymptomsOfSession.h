#pragma once

#include "platform/linux/quorvanectl/AgentLink.h"
#include "platform/linux/quorvanectl/Doctor.h"

namespace quorvane {

/// Those of the session that this process belongs to. Needs a QCoreApplication.
Symptoms symptomsOfSession(AgentLink& agent);

} // namespace quorvane
