#pragma once

#include <QCheckBox>

#include "platform/UserDefaults.h"

namespace quorvane {

/// Ties a check box to a setting: it shows what is stored, whoever wrote it, and stores what the user
/// chooses.
class CheckBoxBinding {
public:
    /// Both must outlive this object.
    CheckBoxBinding(QCheckBox& checkBox, StandardUserDefaults& defaults, std::string key);

private:
    Subscription observation_;
};

} // namespace quorvane
