#pragma once

#include <map>
#include <string>

namespace quorvane {

/// What the program would decide, by application.
struct SwitchingRules {
    std::map<std::string, std::string> sourceOfApplication; ///< By bundle identifier.
    std::string sourceOfOthers;                             ///< Empty: theirs is left alone.

    bool operator==(const SwitchingRules&) const = default;
};

/// A desktop that can select the source of an application that comes to the front by itself, before that one
/// has the keys. The program hears of the application as ever, decides, and finds its decision made.
class SwitchingAhead {
public:
    virtual ~SwitchingAhead() = default;

    /// From now on these hold. Empty ones: nothing is to be selected.
    virtual void setRules(const SwitchingRules& rules) = 0;
};

} // namespace quorvane
