#include "platform/linux/quorvanectl/LayoutKeepers.h"

#include <algorithm>

#include <QFile>
#include <QSettings>
#include <QXmlStreamReader>

namespace quorvane {
namespace {

bool plasmaKeepsLayouts(const QString& configFolder) {
    const QSettings keyboard(configFolder + QStringLiteral("/kxkbrc"), QSettings::IniFormat);
    const auto all = QStringLiteral("Global");
    return keyboard.value("Layout/Use").toBool() && keyboard.value("Layout/SwitchMode", all) != all;
}

/// The panel gives its plug-ins names of its own; only the one for layouts has this setting.
bool lxqtKeepsLayouts(const QString& configFolder) {
    const QSettings panel(configFolder + QStringLiteral("/lxqt/panel.conf"), QSettings::IniFormat);
    const auto all = QStringLiteral("global");
    const auto plugIns = panel.childGroups();
    return std::any_of(plugIns.begin(), plugIns.end(), [&](const QString& plugIn) {
        return panel.value(plugIn + QStringLiteral("/keeper_type"), all) != all;
    });
}

/// The plug-in's settings are properties within its own. Without that one it keeps a layout for each program.
bool isOneForAll(QXmlStreamReader& plugIn) {
    bool isOne = false;
    while (plugIn.readNextStartElement()) {
        const auto setting = plugIn.attributes();
        if (setting.value("name") == u"group-policy") isOne = setting.value("value") == u"0";
        plugIn.skipCurrentElement();
    }
    return isOne;
}

bool xfceKeepsLayouts(const QString& configFolder) {
    QFile panel(configFolder + QStringLiteral("/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"));
    if (!panel.open(QFile::ReadOnly)) return false;
    QXmlStreamReader xml(&panel);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.attributes().value("value") == u"xkb") return !isOneForAll(xml);
    }
    return false;
}

struct Keeper {
    const char* desktop;
    bool (*keepsLayouts)(const QString& configFolder);
    const char* name;
};

constexpr Keeper keepers[] = {
    {"KDE", plasmaKeepsLayouts, "KDE Plasma (Keyboard settings, Layouts, Switching Policy)"},
    {"LXQt", lxqtKeepsLayouts, "LXQt's panel (Keyboard Indicator)"},
    {"XFCE", xfceKeepsLayouts, "Xfce's panel (Keyboard Layouts)"},
};

} // namespace

std::string layoutKeeper(const QString& currentDesktop, const QString& configFolder) {
    const auto desktops = currentDesktop.split(':');
    for (const auto& keeper : keepers) {
        if (desktops.contains(QLatin1String(keeper.desktop)) && keeper.keepsLayouts(configFolder))
            return keeper.name;
    }
    return {};
}

} // namespace quorvane
