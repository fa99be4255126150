#pragma once

#include <optional>
#include <string_view>

#include "platform/linux/appearance/PortalColorScheme.h"
#include "platform/linux/appearance/XSettings.h"

namespace quorvane {

/// What a theme's name says: themes come in pairs, and the dark one's name ends in "dark".
PreferredScheme schemeOfTheme(std::string_view themeName);

/// Gives the program's windows light or dark colours, as the user has the desktop, for as long as this object
/// lives: as the desktop portal says, or if that says nothing, as the desktop's theme is named. Where the
/// desktop colours Qt's programs itself, its colours stay.
class ColorScheme {
public:
    /// Needs a QApplication. The connection must outlive this object; without one (null) the theme is
    /// not known.
    explicit ColorScheme(XConnection* x);

private:
    void apply();

    bool isDark_ = false;
    std::optional<PortalColorScheme> portal_;
    std::optional<XSettings> settings_;
};

} // namespace quorvane
