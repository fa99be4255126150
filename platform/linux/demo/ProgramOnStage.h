#pragma once

#include "platform/linux/demo/Stage.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/WaylandTextProgram.h"

namespace quorvane {

/// A real program with a rule, and what was typed into it.
class ProgramOnStage {
public:
    struct Role {
        TextCommand::Toolkit toolkit;
        const char* name;
        const char* id;     ///< In rules.
        const char* source; ///< Of its rule.
        QRect place;
    };

    ProgramOnStage(Stage& stage, const Role& role)
        : role_(role)
        , program_(stage.server(), role.toolkit, role.name) {
        stage.place(role.name, role.place);
    }

    const char* name() const { return role_.name; }
    const char* source() const { return role_.source; }

    bool activate() { return program_.activate(); }

    /// Whether that, after all that was expected before, arrives.
    bool gets(const QString& text) {
        expected_ += text;
        return waitUntil([this] { return program_.typed() == expected_; });
    }
    std::string typed() { return program_.typed().toStdString(); }

private:
    Role role_;
    WaylandTextProgram program_;
    QString expected_;
};

} // namespace quorvane
