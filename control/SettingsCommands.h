#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "control/CommandResult.h"
#include "control/KnownNames.h"
#include "control/SettingsDocument.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// The commands that show and change what is set, with the running program or without it.
class SettingsCommands {
public:
    /// What else has to happen for a change to count.
    struct Consequences {
        std::function<void()> settingsChanged; ///< For those that others have a copy of.
        std::function<void(const std::string& inputSource)> shortcutChanged;
        /// Whether something else has the hot key of this source.
        std::function<bool(const std::string& inputSource)> isShortcutRefused;
    };

    SettingsCommands(UserDefaultsStores& stores, KnownNames names, Consequences consequences)
        : stores_(stores)
        , standard_(stores.standardUserDefaults())
        , names_(std::move(names))
        , consequences_(std::move(consequences)) {}

    CommandResult rules(const CommandRequest& request) const;
    CommandResult rule(const CommandRequest& request);
    CommandResult defaultSource(const CommandRequest& request);
    CommandResult shortcut(const CommandRequest& request);
    CommandResult exportSettings(const CommandRequest& request) const;

    /// The request's document is what `exportSettings` gave. With "--dry-run" nothing is changed; with
    /// "--replace", what the document does not say goes.
    CommandResult importSettings(const CommandRequest& request);

    KnownNames::Found application(std::string_view text) const;
    KnownNames::Found source(std::string_view text) const;

    /// The id where no source has it.
    std::string nameOfSource(const std::string& id) const;

private:
    std::vector<std::string> sourcesInUse() const;
    PropertyList ruleDocument(const Named& application) const;
    PropertyList sourceDocument(const std::optional<std::string>& id) const;
    PropertyList shortcutDocument(const Named& source) const;
    void tellConsequences(const std::vector<SettingsChange>& changes);

    UserDefaultsStores& stores_;
    StandardUserDefaults& standard_;
    KnownNames names_;
    Consequences consequences_;
};

} // namespace quorvane
