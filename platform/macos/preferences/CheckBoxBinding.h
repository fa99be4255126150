#pragma once

#include <string>

#include "platform/UserDefaults.h"
#import "platform/macos/AppKit.h"

@class QuorvaneCheckBoxTarget;

namespace quorvane {

/// Ties a check box to a setting: it shows what is stored, whoever wrote it, and stores what the user
/// chooses. Not by a binding of AppKit's, because the program hears of the writes of its own defaults only.
class CheckBoxBinding {
public:
    /// The defaults must outlive this object.
    CheckBoxBinding(NSButton* checkBox, StandardUserDefaults& defaults, const std::string& key);

private:
    QuorvaneCheckBoxTarget* target_; // controls do not keep their targets
    Subscription observation_;
};

} // namespace quorvane
