#include "platform/linux/kwin/PlasmaLayouts.h"

#include <algorithm>

#include <QSettings>
#include <QStandardPaths>

#include "platform/linux/keyboard/XkbRegistry.h"

namespace quorvane {

std::vector<XkbLayout> configuredPlasmaLayouts() {
    const auto file = QStandardPaths::locate(QStandardPaths::GenericConfigLocation, "kxkbrc");
    if (file.isEmpty()) return {};
    const QSettings settings(file, QSettings::IniFormat);
    if (!settings.value("Layout/Use", false).toBool()) return {};
    const auto layouts = settings.value("Layout/LayoutList").toStringList();
    const auto variants = settings.value("Layout/VariantList").toStringList();
    std::vector<XkbLayout> configured;
    for (qsizetype place = 0; place < layouts.size(); ++place)
        configured.push_back({layouts[place].toStdString(), variants.value(place).toStdString()});
    return configured;
}

std::vector<XkbLayout> plasmaLayouts(const std::vector<PlasmaLayoutName>& names,
                                     const std::vector<XkbLayout>& configured) {
    const bool isConfigured =
        std::ranges::equal(names, configured, {}, &PlasmaLayoutName::shortName,
                           [](const XkbLayout& layout) { return QString::fromStdString(layout.layout); });
    if (isConfigured) return configured;
    std::vector<std::string> longNames;
    longNames.reserve(names.size());
    for (const auto& name : names)
        longNames.push_back(name.longName.toStdString());
    auto layouts = layoutsOfNames(longNames);
    for (std::size_t place = 0; place < names.size(); ++place) {
        const auto shortName = names[place].shortName.toStdString();
        // Two layouts may have one name, and a new one none in the database.
        if (layouts[place].layout != shortName) layouts[place] = {shortName, ""};
    }
    return layouts;
}

} // namespace quorvane
