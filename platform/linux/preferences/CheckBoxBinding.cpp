#include "platform/linux/preferences/CheckBoxBinding.h"

#include <utility>

namespace quorvane {

CheckBoxBinding::CheckBoxBinding(QCheckBox& checkBox, StandardUserDefaults& defaults, std::string key) {
    checkBox.setChecked(defaults.boolForKey(key));
    observation_ = defaults.addObserver(key, [&checkBox, &defaults](std::string_view changed) {
        checkBox.setChecked(defaults.boolForKey(changed));
    });
    // Only what the user does is "clicked": showing what is stored stores nothing.
    QObject::connect(&checkBox, &QCheckBox::clicked, &checkBox,
                     [&defaults, key = std::move(key)](bool isOn) { defaults.setBool(isOn, key); });
}

} // namespace quorvane
