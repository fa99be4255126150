#import "platform/macos/shell/MainMenu.h"

#import "platform/macos/foundation/Localized.h"
#import "platform/macos/shell/AppDelegate.h"

namespace quorvane {
namespace {

NSMenu* addMenu(NSMenu* mainMenu, NSString* title) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:title];
    [mainMenu addItemWithTitle:title action:nullptr keyEquivalent:@""].submenu = menu;
    return menu;
}

void addApplicationMenu(NSMenu* mainMenu, id preferences) {
    NSMenu* menu = addMenu(mainMenu, localized(@"Quorvane"));
    [menu addItemWithTitle:localized(@"Preferences…") action:@selector(openPreferences:) keyEquivalent:@","]
        .target = preferences;
    [menu addItemWithTitle:localized(@"Quit Quorvane") action:@selector(terminate:) keyEquivalent:@"q"];
}

void addEditMenu(NSMenu* mainMenu) {
    NSMenu* menu = addMenu(mainMenu, localized(@"Edit"));
    // Views with an undo manager answer to these two, which no header declares.
    [menu addItemWithTitle:localized(@"Undo") action:NSSelectorFromString(@"undo:") keyEquivalent:@"z"];
    [menu addItemWithTitle:localized(@"Redo") action:NSSelectorFromString(@"redo:") keyEquivalent:@"Z"];
    [menu addItemWithTitle:localized(@"Cut") action:@selector(cut:) keyEquivalent:@"x"];
    [menu addItemWithTitle:localized(@"Copy") action:@selector(copy:) keyEquivalent:@"c"];
    [menu addItemWithTitle:localized(@"Paste") action:@selector(paste:) keyEquivalent:@"v"];
    [menu addItemWithTitle:localized(@"Select All") action:@selector(selectAll:) keyEquivalent:@"a"];
}

void addWindowMenu(NSMenu* mainMenu) {
    NSMenu* menu = addMenu(mainMenu, localized(@"Window"));
    [menu addItemWithTitle:localized(@"Minimize") action:@selector(performMiniaturize:) keyEquivalent:@"m"];
    [menu addItemWithTitle:localized(@"Close") action:@selector(performClose:) keyEquivalent:@"w"];
}

} // namespace

NSMenu* makeMainMenu(id preferences) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
    addApplicationMenu(menu, preferences);
    addEditMenu(menu);
    addWindowMenu(menu);
    return menu;
}

} // namespace quorvane
