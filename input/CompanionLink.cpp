#include "input/CompanionLink.h"

#include "input/CompanionMessages.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

bool CompanionLink::isRunning() const {
    return !workspace_.runningApplicationsWithBundleIdentifier(maker::companionBundleIdentifier).empty();
}

void CompanionLink::askToSwitchInput(std::string_view inputSourceID) {
    const auto shared = openSharedDefaults(stores_);
    shared->setObject(inputSourceID, key::askTandrelSwitchInput);
    dropRequest();
    waitingRequest_ = shared->whenWritten([this] {
        notifications_.post({std::string(message::askToSwitchInput), {}});
    });
}

} // namespace quorvane
