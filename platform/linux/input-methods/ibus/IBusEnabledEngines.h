#pragma once

#include <string>
#include <vector>

#include "platform/linux/input-methods/ibus/IBusEngines.h"

namespace quorvane {

/// A source in the settings of a desktop that has IBus built in.
struct DesktopInputSource {
    std::string type; ///< `xkb` or `ibus`
    std::string name; ///< `de+neo`, `libpinyin`

    bool operator==(const DesktopInputSource&) const = default;
};

/// All that may say which sources the user has.
struct IBusEnabledSettings {
    std::vector<std::string> preloadEngines; ///< IBus' own setting: names of engines.
    std::vector<DesktopInputSource> desktopSources;
    std::vector<std::string> layoutIDs; ///< What the X server has.
    std::string locale;                 ///< `zh_CN.UTF-8`
};

/// The engines that the user has enabled, in the user's order, each id once: IBus' own setting; where it is
/// empty the desktop's; and where nothing was set ever, the X server's layouts and the input method of the
/// user's language, which is what IBus sets then. Only what is installed counts.
std::vector<const IBusEngine*> enabledEngines(const IBusEngines& installed,
                                              const IBusEnabledSettings& settings);

} // namespace quorvane
