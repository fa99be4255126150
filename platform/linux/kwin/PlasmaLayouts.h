#pragma once

#include <vector>

#include <QString>

#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {

/// A layout as KWin tells it: `ru`, and `Russian (phonetic)` in the user's language.
struct PlasmaLayoutName {
    QString shortName;
    QString longName;

    bool operator==(const PlasmaLayoutName&) const = default;
};

/// The layouts of the user's configuration; empty when it has none.
std::vector<XkbLayout> configuredPlasmaLayouts();

/// The layouts with these names. KWin does not tell variants: they are those of the configuration when that
/// is what KWin uses, or of the database.
std::vector<XkbLayout> plasmaLayouts(const std::vector<PlasmaLayoutName>& names,
                                     const std::vector<XkbLayout>& configured);

} // namespace quorvane
