#pragma once

#include "platform/Widgets.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

/// What the user clicks to see a tab: a picture above a text.
class MacTabHeader : public TabHeader {
public:
    /// `symbol` names a picture of the system's. The target is not kept alive.
    MacTabHeader(NSString* title, NSString* symbol, id target, SEL action);

    void setShaded(bool shaded) override;

    NSView* native() const { return view_; }

private:
    NSView* view_;
    NSButton* button_;
};

} // namespace quorvane
