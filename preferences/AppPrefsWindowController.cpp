#include "preferences/AppPrefsWindowController.h"

namespace quorvane {

AppPrefsWindowController::AppPrefsWindowController(InterfaceFiles& interfaceFiles,
                                                   std::string_view windowNibName,
                                                   std::function<void(std::string_view id)> changeInputTo)
    : changeInputTo_(std::move(changeInputTo))
    , window_(interfaceFiles.loadWindow(windowNibName)) {}

} // namespace quorvane
