#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

class X11HotKeys : public HotKeys {
public:
    explicit X11HotKeys(XConnection& x) : x_(x) {}
    std::optional<Subscription> registerHotKey(const KeyCombination& combination,
                                               std::function<void()> pressed) override;

private:
    XConnection& x_;
};

} // namespace quorvane
