#pragma once

#include <string_view>
#include <vector>

#include "platform/PreferencesInterface.h"
#include "platform/Subscription.h"
#include "platform/UserDefaults.h"
#include "platform/Widgets.h"

namespace quorvane {

/// Ties a check box to a setting: it shows what is stored, whoever wrote it, and stores what the user
/// chooses.
class CheckBoxBinding {
public:
    /// Both must outlive this object.
    CheckBoxBinding(CheckBox& checkBox, StandardUserDefaults& standard, std::string_view key);

private:
    Subscription observation_;
};

/// Ties each of the options to its setting.
std::vector<CheckBoxBinding> bindCheckBoxes(const OptionCheckBoxes& options, StandardUserDefaults& standard);

} // namespace quorvane
