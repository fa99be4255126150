#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Widgets.h"
#import "platform/macos/AppKit.h"
#import "platform/macos/appkit/MacMenus.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/tables/CellTarget.h"

namespace quorvane {

// The widget ports on AppKit's widgets.

class MacLabel : public Label {
public:
    explicit MacLabel(NSTextField* label) : label_(label) {}

    void setStringValue(const std::string& text) override { label_.stringValue = shownText(text); }

private:
    NSTextField* label_;
};

class MacButton : public Button {
public:
    explicit MacButton(NSButton* button) : button_(button) {}

    void setTitle(const std::string& title) override { button_.title = shownText(title); }
    void setEnabled(bool enabled) override { button_.enabled = enabled; }
    void setState(int state) override { button_.state = state; }
    int state() const override { return static_cast<int>(button_.state); }

private:
    NSButton* button_;
};

class MacCheckBox : public CheckBox {
public:
    explicit MacCheckBox(NSButton* checkBox) : checkBox_(checkBox) {}
    MacCheckBox(const MacCheckBox&) = delete;
    MacCheckBox& operator=(const MacCheckBox&) = delete;
    ~MacCheckBox() override { checkBox_.target = nil; } // AppKit may keep it for a while yet.

    void setState(int state) override { checkBox_.state = state; }
    void whenClicked(std::function<void(int state)> handler) override {
        checkBox_.target = targetOf(checkBox_, [handler = std::move(handler)](id sender) {
            NSButton* clicked = sender;
            handler(static_cast<int>(clicked.state));
        });
        checkBox_.action = @selector(receive:);
    }

private:
    NSButton* checkBox_;
};

class MacPopUpButton : public PopUpButton {
public:
    explicit MacPopUpButton(NSPopUpButton* button) : button_(button) {}

    void setItemTitles(const std::vector<std::string>& titles) override {
        button_.menu = makeMenu(titles);
        if (!titles.empty()) [button_ selectItemAtIndex:0];
    }
    void setTitle(const std::string& title) override {
        // The button's own method adds an item that is missing.
        const auto item = [button_.menu indexOfItemWithTitle:shownText(title)];
        if (item >= 0) [button_ selectItemAtIndex:item];
    }
    int indexOfSelectedItem() const override { return static_cast<int>(button_.indexOfSelectedItem); }

private:
    NSPopUpButton* button_;
};

class MacTabView : public TabView {
public:
    explicit MacTabView(NSTabView* pages) : pages_(pages) {}

    /// Nothing happens when there is no such tab.
    void selectTabViewItemAtIndex(int index) override {
        if (index >= 0 && index < pages_.numberOfTabViewItems) [pages_ selectTabViewItemAtIndex:index];
    }

private:
    NSTabView* pages_;
};

} // namespace quorvane
