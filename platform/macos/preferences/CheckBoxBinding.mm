#import "platform/macos/preferences/CheckBoxBinding.h"

#include <functional>

#include "platform/macos/foundation/CallProgram.h"

@interface QuorvaneCheckBoxTarget : NSObject
- (instancetype)initWithStore:(std::function<void(bool)>)store;
- (void)choose:(NSButton*)checkBox;
@end

@implementation QuorvaneCheckBoxTarget {
    std::function<void(bool)> _store;
}

- (instancetype)initWithStore:(std::function<void(bool)>)store {
    if ((self = [super init])) _store = std::move(store);
    return self;
}

- (void)choose:(NSButton*)checkBox {
    quorvane::callProgram(_store, checkBox.state == NSControlStateValueOn);
}

@end

namespace quorvane {

CheckBoxBinding::CheckBoxBinding(NSButton* checkBox, StandardUserDefaults& defaults, const std::string& key)
    : target_([[QuorvaneCheckBoxTarget alloc]
          initWithStore:[&defaults, key](bool isOn) { defaults.setBool(isOn, key); }]) {
    const auto show = [checkBox, &defaults](std::string_view stored) {
        checkBox.state = defaults.boolForKey(stored) ? NSControlStateValueOn : NSControlStateValueOff;
    };
    show(key);
    observation_ = defaults.addObserver(key, show);
    checkBox.target = target_;
    checkBox.action = @selector(choose:);
}

} // namespace quorvane
