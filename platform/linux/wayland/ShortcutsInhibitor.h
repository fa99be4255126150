#pragma once

#include <memory>

#include <QWindow>

#include "platform/Subscription.h"

namespace quorvane {

/// Has the compositor give every key to a window of this program, its own shortcuts included
/// (keyboard-shortcuts-inhibit). It works on the toolkit's connection, whose windows these are. Compositors
/// may ask the user first, and let the user take the keys back.
class ShortcutsInhibitor {
public:
    /// Needs a QGuiApplication on Wayland.
    ShortcutsInhibitor();
    ~ShortcutsInhibitor();
    ShortcutsInhibitor(const ShortcutsInhibitor&) = delete;
    ShortcutsInhibitor& operator=(const ShortcutsInhibitor&) = delete;

    /// As long as what is returned lives. Without effect where the compositor has no such protocol.
    Subscription inhibit(QWindow& window);

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace quorvane
