#include "platform/linux/preferences/SettingsNotices.h"

#include "platform/linux/localization/Localized.h"

namespace quorvane {
namespace {

QString setAsideText(const std::string& place) {
    return localized("A settings file was damaged and has been replaced. What was in it is kept as %1.")
        .arg(QString::fromStdString(place));
}

} // namespace

std::string textOfUnsaved(const SettingsHealth::Unsaved& unsaved) {
    const auto place = QString::fromStdString(unsaved.place);
    if (unsaved.obstacle == SettingsHealth::Obstacle::lockedByAnotherProgram)
        return localized("Another program keeps %1 locked. Your settings are in use, and are saved later.")
            .arg(place)
            .toStdString();
    return localized(
               "%1 cannot be written (%2). Your settings are in use, and are saved as soon as they can be.")
        .arg(place, QString::fromStdString(unsaved.detail))
        .toStdString();
}

SettingsNotices::SettingsNotices(SettingsHealth& health, Notices& notices)
    : health_(health)
    , notices_(notices)
    , changes_(health.addObserver([this] { tell(); })) {
    tell();
}

void SettingsNotices::tell() {
    const auto unsaved = health_.unsaved();
    notices_.set("settings: unsaved", unsaved ? textOfUnsaved(*unsaved) : std::string());
    const auto& setAside = health_.setAside();
    notices_.set("settings: damaged",
                 setAside.empty() ? std::string() : setAsideText(setAside.back()).toStdString());
}

} // namespace quorvane
