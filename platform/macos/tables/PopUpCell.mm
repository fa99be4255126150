#include <memory>

#import "platform/macos/appkit/MacMenus.h"
#import "platform/macos/tables/CellTarget.h"
#import "platform/macos/tables/CellViews.h"

namespace quorvane {
NSView* makeView(const PopUpButtonPart& part, const CellSurroundings& surroundings) {
    NSPopUpButton* button = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
    button.menu = makeMenu(part.itemTitles);
    // Not by its title: one that is not in the menu would become one more item.
    if (!part.itemTitles.empty()) [button selectItemAtIndex:part.selectedItem()];
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
        part.choose(chosen.indexOfSelectedItem);
    });
    button.action = @selector(receive:);
    return button;
}

} // namespace quorvane
