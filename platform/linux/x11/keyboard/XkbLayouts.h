#pragma once

#include <string>
#include <vector>

#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {

/// What an X server tells about its keyboard map.
struct XkbMapDescription {
    std::size_t groupCount = 0; ///< As the map really has it.

    /// The name of the map's symbols: `pc+us+ru(phonetic):2+inet(evdev)`. Made with the map itself.
    std::string symbols;

    /// The layouts and variants, each a list separated by commas, that some program wrote into the root
    /// window's property when it last set the keyboard. May have more or fewer entries than there are groups,
    /// or describe another map altogether.
    std::string declaredLayouts;
    std::string declaredVariants;

    /// What the map calls its groups: `Russian (phonetic)`. May be shorter or longer than the map.
    std::vector<std::string> groupNames;
};

/// The layout of each group, as many as there are groups. What was declared counts where the symbols bear it
/// out, else what the symbols say; a group that is in neither is known by its name.
std::vector<XkbLayout> layoutsOfGroups(const XkbMapDescription& map);

} // namespace quorvane
