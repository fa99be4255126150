#import "platform/macos/shell/MacInterfaceFiles.h"

namespace quorvane {

MacInterfaceFiles::MacInterfaceFiles(const MacPreferences::Neighbours& neighbours)
    : neighbours_(neighbours)
    , window_(neighbours.notifications)
    , inputIconWindow_(neighbours.notifications) {}

MainInterface MacInterfaceFiles::mainInterface() {
    return {window_, inputIconWindow_, inputIconWindow_.iconView(), inputIconWindow_.iconBox()};
}

std::unique_ptr<PreferencesInterface> MacInterfaceFiles::loadPreferences() {
    auto preferences = std::make_unique<MacPreferences>(neighbours_);
    preferencesWindow_ = preferences->nativeWindow();
    return preferences;
}

} // namespace quorvane
