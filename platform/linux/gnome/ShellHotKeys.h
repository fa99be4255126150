#pragma once

#include <vector>

#include "platform/linux/gnome/GnomeShell.h"
#include "platform/linux/keyboard/AskedHotKeys.h"

namespace quorvane {

/// Hot keys as accelerators of GNOME Shell, by the position of the key.
class ShellHotKeys : public HotKeyBindings {
public:
    /// Both must outlive this object.
    ShellHotKeys(GnomeShell& shell, ShellMessages& messages);

    void bind(unsigned number, const KeyCombination& combination,
              std::function<void(bool isGranted)> answered) override;
    void unbind(unsigned number, const KeyCombination& combination) override;

private:
    GnomeShell& shell_;
    std::vector<Subscription> subscriptions_;
};

/// `<Control><Alt>0x2c`; empty when there is no such key.
QString acceleratorOf(const KeyCombination& combination);

} // namespace quorvane
