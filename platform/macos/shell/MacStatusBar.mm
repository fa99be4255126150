#import "platform/macos/shell/MacStatusBar.h"

#include <functional>
#include <utility>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/Localized.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/shell/TemplateImage.h"

/// What a menu item calls.
@interface QuorvaneMenuAction : NSObject
- (instancetype)initWithAction:(std::function<void()>)action;
- (void)chosen:(nullable id)sender;
@end

@implementation QuorvaneMenuAction {
    std::function<void()> _action;
}

- (instancetype)initWithAction:(std::function<void()>)action {
    if ((self = [super init])) _action = std::move(action);
    return self;
}

- (void)chosen:(nullable id)sender {
    if (_action) quorvane::callProgram(_action);
}

@end

namespace quorvane {
namespace {

NSMenu* makeMenu(Menu&& items) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
    menu.autoenablesItems = NO;
    for (auto& item : items) {
        NSString* title = toNSString(item.title);
        NSMenuItem* made = [menu addItemWithTitle:title ? title : @""
                                           action:@selector(chosen:)
                                    keyEquivalent:@""];
        QuorvaneMenuAction* action = [[QuorvaneMenuAction alloc] initWithAction:std::move(item.action)];
        made.enabled = item.isEnabled;
        made.target = action;
        made.representedObject = action; // An item does not keep its target.
    }
    return menu;
}

class MacStatusItem : public StatusItem {
public:
    explicit MacStatusItem(double length) : item_([NSStatusBar.systemStatusBar statusItemWithLength:length]) {
        item_.button.accessibilityLabel =
            localized(@"Quorvane"); // A picture says nothing to a screen reader.
        // The system remembers what it was when the program ran last.
        item_.visible = YES;
    }
    MacStatusItem(const MacStatusItem&) = delete;
    MacStatusItem& operator=(const MacStatusItem&) = delete;
    ~MacStatusItem() override { [NSStatusBar.systemStatusBar removeStatusItem:item_]; }

    void setTemplateImage(ImageRef image) override { item_.button.image = templateOf(image); }
    void setMenu(Menu menu) override { item_.menu = makeMenu(std::move(menu)); }
    void setToolTip(std::function<std::string()> toolTip) override { toolTip_ = std::move(toolTip); }
    void toolTipChanged() override { item_.button.toolTip = toNSString(toolTip_()); }
    void setHighlightMode(bool /*highlights*/) override {} // An item with a menu always does.
    void setVisible(bool visible) override { item_.visible = visible; }

private:
    NSStatusItem* item_;
    std::function<std::string()> toolTip_;
};

} // namespace

std::unique_ptr<StatusItem> MacStatusBar::statusItemWithLength(double length) {
    return std::make_unique<MacStatusItem>(length);
}

} // namespace quorvane
