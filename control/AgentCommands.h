#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "control/CommandResult.h"
#include "control/SettingsCommands.h"
#include "input/CompanionLink.h"
#include "input/InputSwitch.h"
#include "platform/Desktop.h"
#include "platform/DesktopReport.h"
#include "platform/Signal.h"
#include "shortcuts/PTHotKeyCenter.h"
#include "switching/InputDecision.h"
#include "switching/SwitchPause.h"

namespace quorvane {

/// The parts of the running program that commands ask and change.
struct ControlledProgram {
    InputDecision& decision;
    InputSwitch& inputSwitch;
    SwitchPause& pause;
    const CompanionLink& companion;
    PTHotKeyCenter& hotKeyCenter;
    PTHotKey::Action pressed; ///< What hot keys do.
};

/// What the running program answers to commands: from a terminal, from an editor, from another program.
class AgentCommands {
public:
    /// All of these must outlive it.
    AgentCommands(Desktop& desktop, const DesktopReport& report, ControlledProgram program);
    AgentCommands(const AgentCommands&) = delete;
    AgentCommands& operator=(const AgentCommands&) = delete;

    CommandResult run(std::string_view command, const CommandRequest& request);

    /// Each decision as it is made: "time" (seconds since 1970), "application", "reason", "outcome",
    /// "source", "milliseconds".
    Signal<const PropertyList&> decided;

private:
    using Command = CommandResult (AgentCommands::*)(const CommandRequest&);
    static const std::map<std::string_view, Command>& commands();

    CommandResult status(const CommandRequest& request);
    CommandResult why(const CommandRequest& request);
    CommandResult applications(const CommandRequest& request);
    CommandResult sources(const CommandRequest& request);
    CommandResult select(const CommandRequest& request);
    CommandResult pause(const CommandRequest& request);
    CommandResult resume(const CommandRequest& request);
    template <auto command>
    CommandResult settings(const CommandRequest& request) {
        return (settingsCommands_.*command)(request);
    }

    KnownNames knownNames() const;
    std::vector<Named> knownApplications() const;
    std::vector<Named> knownSources() const;
    std::string nameOf(const std::string& bundleIdentifier) const;
    PropertyList sourceDocument(const std::optional<std::string>& id) const;
    PropertyList explanation(const std::optional<Named>& application) const;
    std::optional<Named> lastApplication() const;
    PropertyList refusedShortcuts() const;
    void tell();

    Desktop& desktop_;
    const DesktopReport& report_;
    ControlledProgram program_;
    SettingsCommands settingsCommands_;
    Subscription decisions_;
};

} // namespace quorvane
