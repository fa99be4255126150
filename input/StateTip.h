#pragma once

#include "platform/Image.h"
#include "platform/InterfaceFiles.h"
#include "platform/TextInputSources.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// What the floating indicator shows: the icon of the current input source, on a box when it is monochrome.
class StateTip {
public:
    StateTip(const TextInputSources& inputSources, const Images& images, UserDefaultsStores& stores,
             ImageView& iconView, View& iconBox)
        : inputSources_(inputSources)
        , images_(images)
        , stores_(stores)
        , iconView_(iconView)
        , iconBox_(iconBox) {}

    bool isEnabled() const;

    /// The current source's icon, ready to be shown: a monochrome one at 18 by 18 points, any other at its
    /// own size; null when there is none. Shows or hides the box to suit it.
    ImageRef getCurrentInputIcon();

    /// Shows the current state, or hides everything when the user does not want the indicator.
    void inputChnagedNotification();

private:
    const TextInputSources& inputSources_;
    const Images& images_;
    UserDefaultsStores& stores_;
    ImageView& iconView_;
    View& iconBox_;
};

} // namespace quorvane
