#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {

/// What people call a layout.
struct XkbLayoutNames {
    std::string description; ///< In the user's language: `Русская (фонетическая)`.
    std::string brief;       ///< The language in two or three small letters: `ru`.
};

/// Looks layouts up in the database of all that are installed. Layouts it does not know are left out. Reading
/// the database takes some milliseconds and megabytes, so nothing of it is kept.
std::map<std::string, XkbLayoutNames> namesOfLayouts(const std::vector<XkbLayout>& layouts); // by layout id

/// Looks layouts up by what the database, and so a keymap, calls them in English: `Russian (phonetic)`. One
/// that it does not know gets that as its name.
std::vector<XkbLayout> layoutsOfNames(const std::vector<std::string>& names); // in this order

} // namespace quorvane
