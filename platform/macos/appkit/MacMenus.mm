#import "platform/macos/appkit/MacMenus.h"

#include <utility>

#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/foundation/Receiver.h"

namespace quorvane {
namespace {

NSMenuItem* addItem(NSMenu* menu, const std::string& title, SEL action) {
    return [menu addItemWithTitle:shownText(title) action:action keyEquivalent:@""];
}

} // namespace

NSMenu* makeMenu(const std::vector<std::string>& titles) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
    for (const auto& title : titles)
        addItem(menu, title, nullptr);
    return menu;
}

NSMenu* makeMenu(Menu items) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
    menu.autoenablesItems = NO;
    for (auto& item : items) {
        NSMenuItem* made = addItem(menu, item.title, @selector(receive:));
        QuorvaneReceiver* receiver =
            [[QuorvaneReceiver alloc] initWithHandler:[action = std::move(item.action)](id) {
                if (action) action();
            }];
        made.enabled = item.isEnabled;
        made.target = receiver;
        made.representedObject = receiver; // An item does not keep its target.
    }
    return menu;
}

} // namespace quorvane
