#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/input-methods/InputMethodDaemon.h"
#include "platform/linux/input-methods/InputMethodIcons.h"
#include "platform/linux/input-methods/LayoutUnderneath.h"
#include "platform/linux/input-methods/ibus/IBusAddress.h"
#include "platform/linux/input-methods/ibus/IBusConnection.h"
#include "platform/linux/input-methods/ibus/IBusEngines.h"
#include "platform/linux/input-methods/ibus/IBusSelection.h"
#include "platform/linux/input-methods/ibus/IBusSettings.h"
#include "platform/linux/keyboard/LayoutSources.h"

namespace quorvane {

/// The engines that the user has enabled in IBus. There is one selected engine for all programs. While it is
/// a keyboard layout, IBus hands the keys through, and what is typed is the X server's layout.
class IBusInputSources final : public InputMethodDaemon {
public:
    /// The layouts must outlive this object.
    IBusInputSources(LayoutSources& layouts, InputMethodIcons icons);
    ~IBusInputSources() override;

    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

    std::string_view name() const override { return "IBus"; }
    std::string_view idPrefix() const override { return ibusIdPrefix; }
    bool isAvailable() const override { return isAvailable_; }
    bool isStartedAnew() const override { return isStartedAnew_; }
    void applicationActivated(const std::string& application, int process) override;

private:
    void connectToDaemon();
    void readEngines();
    void askGlobalEngine();
    void setGlobalEngine(const std::string& engine);
    void setAvailable(bool isAvailable);
    void tellSelection();
    std::string currentID() const;
    std::vector<const IBusEngine*> enabled() const;
    InputSource sourceOf(const std::string& id) const;

    LayoutSources& layouts_;
    LayoutUnderneath underneath_;
    InputMethodIcons icons_;

    bool isAvailable_ = false;
    bool isStartedAnew_ = true;
    IBusEngines engines_;
    std::optional<IBusSettings> settings_; ///< From when a daemon was first available.
    IBusSelection selection_;
    std::string toldID_; ///< What observers know as the selected source.

    IBusConnection connection_;
    IBusAddress address_;
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
