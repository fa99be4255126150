#pragma once

#include <map>
#include <string>

#include <QTimer>

#include "platform/SwitchingAhead.h"
#include "platform/linux/applications/WindowOwners.h"
#include "platform/linux/gnome/GnomeShell.h"

namespace quorvane {

/// The program's rules in GNOME Shell, which applies them in the moment in which a window gets the focus. The
/// shell knows windows by desktop file or class: which applications these are is what this class knows.
class ShellRules : public SwitchingAhead {
public:
    /// All must outlive this object. The owners know a window before this object hears of it.
    ShellRules(GnomeShell& shell, ShellMessages& messages, const WindowOwners& owners);

    void setRules(const SwitchingRules& rules) override;

private:
    void windowChanged(WindowId window, const WindowFacts& facts);
    void send() const;

    GnomeShell& shell_;
    const WindowOwners& owners_;
    SwitchingRules rules_;
    std::map<std::string, std::string> applications_; ///< By the shell's word for it, where that differs.
    QTimer sending_;                                  ///< Several changes in one turn are one.
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
