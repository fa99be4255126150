#include "platform/linux/gnome/ExtensionNotices.h"

#include "platform/linux/localization/Localized.h"

namespace quorvane {
namespace {

/// Empty when there is nothing to tell.
QString textOf(ShellExtension::State state) {
    switch (state) {
    case ShellExtension::State::isOff:
        return localized("GNOME Shell lets Quorvane work by an extension only, and that is turned off.");
    case ShellExtension::State::needsLogout:
        return localized(
            "Log out and in once: GNOME Shell looks for Quorvane's extension when the session starts.");
    case ShellExtension::State::isMissing:
        return localized("Quorvane's extension of GNOME Shell is not installed: without it, nothing can be "
                         "switched.");
    case ShellExtension::State::isRefused:
        return localized("GNOME Shell refuses Quorvane's extension: it does not fit this version, or it has "
                         "failed.");
    case ShellExtension::State::unknown:
    case ShellExtension::State::works:
        return {};
    }
    return {};
}

} // namespace

ExtensionNotices::ExtensionNotices(ShellExtension& extension, Notices& notices)
    : extension_(extension)
    , notices_(notices)
    , changes_(extension.changed.connect([this] { tell(); })) {
    tell();
}

void ExtensionNotices::tell() {
    Notices::Remedy remedy;
    if (extension_.state() == ShellExtension::State::isOff)
        remedy = {localized("Turn It On").toStdString(), [this] { extension_.turnOn(); }};
    notices_.set("GNOME Shell", textOf(extension_.state()).toStdString(), std::move(remedy));
}

} // namespace quorvane
