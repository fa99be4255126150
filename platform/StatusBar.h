#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Image.h"

namespace quorvane {

struct MenuItem {
    std::string title;
    bool isEnabled = true;
    std::function<void()> action;
};

using Menu = std::vector<MenuItem>;

class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// A template image: only its shape counts, the desktop chooses the colour.
    virtual void setTemplateImage(ImageRef image) = 0;
    virtual void setMenu(Menu menu) = 0;

    /// What the item says when the pointer rests on it. Asked for at `toolTipChanged`, or some time after it,
    /// when the desktop has nothing better to do; it must be callable as long as the item lives.
    virtual void setToolTip(std::function<std::string()> toolTip) = 0;
    virtual void toolTipChanged() = 0;
    virtual void setHighlightMode(bool highlights) = 0;
    virtual void setVisible(bool visible) = 0;
};

inline constexpr double variableStatusItemLength = -1;

class StatusBar {
public:
    virtual ~StatusBar() = default;

    /// The item stays in the status bar as long as it is kept.
    virtual std::unique_ptr<StatusItem> statusItemWithLength(double length) = 0;
};

} // namespace quorvane
