#import "platform/macos/shell/MacStatusBar.h"

#include <functional>
#include <utility>

#import "platform/macos/appkit/MacMenus.h"
#import "platform/macos/foundation/Localized.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/shell/TemplateImage.h"

namespace quorvane {
namespace {

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

    void setTemplateImage(ImageRef image) override {
        item_.button.image = templateOf(image);
        item_.button.title = image ? @"" : localized(@"Quorvane"); // There must be something to click on.
    }
    void setMenu(Menu menu) override { item_.menu = makeMenu(std::move(menu)); }
    void setToolTip(std::function<std::string()> toolTip) override { toolTip_ = std::move(toolTip); }
    void toolTipChanged() override { item_.button.toolTip = shownText(toolTip_()); }
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
