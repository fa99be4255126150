#pragma once

#include <optional>

#include "platform/linux/demo/Stage.h"

namespace quorvane {

/// The launcher that a user of the compositor opens: GNOME's overview, else wofi.
class LauncherOfStage {
public:
    explicit LauncherOfStage(Stage& stage) : stage_(stage) {}

    const char* name() const { return stage_.gnome() ? "overview" : "wofi"; }
    std::string id() const { return stage_.gnome() ? "org.gnome.Shell" : "wofi"; } ///< In rules.

    void open();
    QString close(); ///< What was typed into it.

private:
    Stage& stage_;
    std::optional<RunningProgram> wofi_;
};

} // namespace quorvane
