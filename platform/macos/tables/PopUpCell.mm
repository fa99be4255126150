#include <algorithm>
#include <memory>

#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/tables/CellTarget.h"
#import "platform/macos/tables/CellViews.h"

namespace quorvane {
namespace {

/// Built by hand, since titles may repeat: the button's own methods would leave only the last of them.
NSMenu* menuOf(const std::vector<std::string>& titles) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
    for (const auto& title : titles) {
        NSString* text = toNSString(title);
        [menu addItemWithTitle:text ? text : @"" action:nil keyEquivalent:@""];
    }
    return menu;
}

/// By its place: a title that is not in the menu would become one more item.
void select(NSPopUpButton* button, const PopUpButtonPart& part) {
    const auto& titles = part.itemTitles;
    if (titles.empty()) return;
    const auto found = std::find(titles.begin(), titles.end(), part.title);
    [button selectItemAtIndex:found == titles.end() ? 0 : found - titles.begin()];
}

void choose(const PopUpButtonPart& part, NSInteger item) {
    if (!part.action || item < 0 || static_cast<std::size_t>(item) >= part.itemTitles.size()) return;
    part.action(part.itemTitles[static_cast<std::size_t>(item)]);
}

} // namespace

NSView* makeView(const PopUpButtonPart& part, const CellSurroundings& surroundings) {
    NSPopUpButton* button = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
    button.menu = menuOf(part.itemTitles);
    select(button, part);
    button.bordered = part.isBordered;
    button.tag = part.tag;
    button.cell.lineBreakMode = NSLineBreakByTruncatingTail;
    if (surroundings.columnTitle.length > 0) button.accessibilityLabel = surroundings.columnTitle;

    const auto openMenu = std::make_shared<Subscription>(); // the use of the cell
    observe(button, NSPopUpButtonWillPopUpNotification, button,
            [openMenu, reload = surroundings.reload, willPopUp = part.willPopUp, tag = part.tag](id) {
                *openMenu = useOf(reload);
                if (willPopUp) willPopUp(tag);
            });
    button.menu.delegate = targetOf(button, [openMenu](id) { openMenu->end(); });
    button.target = targetOf(button, [openMenu, reload = surroundings.reload, part](id sender) {
        const auto use = useOf(reload);
        openMenu->end(); // also where a menu closes without a word
        NSPopUpButton* chosen = sender;
        choose(part, chosen.indexOfSelectedItem);
    });
    button.action = @selector(receive:);
    return button;
}

} // namespace quorvane
