#pragma once

#include <utility>
#include <vector>

#include <QJsonObject>

#include "platform/linux/applications/WindowId.h"
#include "platform/linux/session/CompositorWindow.h"

namespace quorvane {

/// What sway's tree of containers tells at one moment.
struct SwayTree {
    std::vector<std::pair<WindowId, CompositorWindow>> windows;
    WindowId focused = noWindow;

    /// Neither a window nor an empty workspace has the keys: something that sway shows above all windows.
    bool isFocusElsewhere = true;
};

/// `root` is the answer to `getTree`.
SwayTree swayTree(const QJsonObject& root);

/// Whether this container of the tree, or of an event, is a window.
bool isSwayWindow(const QJsonObject& container);

WindowId swayWindowId(const QJsonObject& container);

/// Not whether it is hidden, which its place in the tree tells.
CompositorWindow swayWindow(const QJsonObject& container);

} // namespace quorvane
