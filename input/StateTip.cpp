#include "input/StateTip.h"

#include "input/IconLoading.h"
#include "input/MonochromeTest.h"
#include "settings/Keys.h"

namespace quorvane {
namespace {

constexpr Size sizeOnBox{18, 18};

} // namespace

bool StateTip::isEnabled() const {
    return stores_.standardUserDefaults().boolForKey(key::enableTipOfState);
}

ImageRef StateTip::getCurrentInputIcon() {
    const auto current = inputSources_.copyCurrentKeyboardInputSource();
    const auto icon = current ? loadIcon(*current, inputSources_, images_) : nullptr;
    const bool standsOnBox = isMonochrome(icon);
    iconBox_.setHidden(!standsOnBox);
    return standsOnBox ? scaleImage(icon, sizeOnBox) : icon;
}

void StateTip::inputChnagedNotification() {
    const bool enabled = isEnabled();
    iconView_.setHidden(!enabled);
    iconBox_.setHidden(!enabled);
    if (enabled) iconView_.setImage(getCurrentInputIcon()); // may hide the box again
}

} // namespace quorvane
