#include "settings/SettingsMirror.h"

#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

void SettingsMirror::copyAutoInput() {
    const auto shared = openSharedDefaults(stores_);
    shared->setObject(own_.objectForKey(key::autoInput), key::autoInput);
    shared->synchronize();
}

void SettingsMirror::copyForceEnglishBrowserAddress() {
    const auto shared = openSharedDefaults(stores_);
    shared->setBool(own_.boolForKey(key::enableForceEnglishBrowserAddress),
                    key::enableForceEnglishBrowserAddress);
    shared->synchronize();
}

} // namespace quorvane
