#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/dbus/DaemonConnection.h"
#include "platform/linux/input-methods/DaemonInputSources.h"
#include "platform/linux/input-methods/ibus/IBusAddress.h"
#include "platform/linux/input-methods/ibus/IBusEngines.h"
#include "platform/linux/input-methods/ibus/IBusSettings.h"

namespace quorvane {

/// The engines that the user has enabled in IBus. There is one selected engine for all programs, and all are
/// told when it changes. While it is a keyboard layout, IBus hands the keys through, and what is typed is the
/// X server's layout.
class IBusInputSources final : public DaemonInputSources {
public:
    /// The layouts must outlive this object.
    IBusInputSources(LayoutSources& layouts, InputMethodIcons icons);

    std::string_view name() const override { return "IBus"; }
    std::string_view idPrefix() const override { return ibusIdPrefix; }
    bool isStartedAnew() const override { return connection_.isStartedAnew(); }
    void applicationActivated(const std::string& application, int process) override;

private:
    void callSelect(const std::string& ownName) override;
    void callLook() override;
    std::string idOf(const std::string& ownName) const override { return idOfEngine(ownName); }

    void connectToDaemon();
    void cameAlive();
    void readEngines();
    void startAhead(const std::vector<IBusEngine>& engines);
    void told(const std::string& engine);

    std::optional<IBusSettings> settings_; ///< From when a daemon was first there.
    DaemonConnection connection_;
    IBusAddress address_;
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
