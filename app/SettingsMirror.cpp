#include "app/SettingsMirror.h"

#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

void SettingsMirror::copyAutoInput() {
    const auto shared = openSharedDefaults(stores_);
    shared->setObject(stores_.standardUserDefaults().objectForKey(key::autoInput), key::autoInput);
    shared->synchronize();
}

void SettingsMirror::copyForceEnglishBrowserAddress() {
    const auto shared = openSharedDefaults(stores_);
    shared->setBool(stores_.standardUserDefaults().boolForKey(key::enableForceEnglishBrowserAddress),
                    key::enableForceEnglishBrowserAddress);
    shared->synchronize();
}

} // namespace quorvane
