#include "preferences/AppPrefsWindowController.h"

namespace quorvane {

AppPrefsWindowController::AppPrefsWindowController(InterfaceFiles& interfaceFiles,
                                                   std::string_view windowNibName)
    : window_(interfaceFiles.loadWindow(windowNibName)) {}

} // namespace quorvane
