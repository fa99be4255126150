#include "platform/linux/appearance/ColorScheme.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QStyle>

#include "platform/linux/appearance/DarkPalette.h"

namespace quorvane {

PreferredScheme schemeOfTheme(std::string_view themeName) {
    constexpr std::string_view ending = "dark";
    if (themeName.empty()) return PreferredScheme::none;
    const auto length = std::min(themeName.size(), ending.size());
    const bool isDark = std::equal(ending.begin(), ending.end(), themeName.end() - std::ptrdiff_t(length),
                                   themeName.end(), [](char a, char b) { return a == (b | 0x20); });
    return isDark ? PreferredScheme::dark : PreferredScheme::light;
}

ColorScheme::ColorScheme(XConnection* x) {
    const bool isColouredByDesktop = QApplication::palette() != QApplication::style()->standardPalette();
    if (isColouredByDesktop) return;
    portal_.emplace([this] { apply(); });
    if (x) settings_.emplace(*x, [this] { apply(); });
    apply();
}

void ColorScheme::apply() {
    auto wanted = portal_->preferred();
    if (wanted == PreferredScheme::none && settings_)
        wanted = schemeOfTheme(settings_->text("Net/ThemeName").value_or(""));
    const bool isDark = wanted == PreferredScheme::dark;
    if (std::exchange(isDark_, isDark) == isDark) return;
    // An empty palette takes back what was set: Qt's own one is light.
    QApplication::setPalette(isDark ? darkPalette() : QPalette());
    if (isDark) QApplication::setPalette(darkCheckBoxPalette(), "QCheckBox");
}

} // namespace quorvane
