#pragma once

#include <map>

#include <QString>

#include "platform/Screens.h"
#include "platform/linux/session/CompositorWindows.h"

namespace quorvane {

/// The screens of a Wayland session, as the toolkit hears of them.
class ToolkitScreens : public Screens {
public:
    /// Needs a QGuiApplication. The windows must outlive this object.
    explicit ToolkitScreens(const CompositorWindows& windows) : windows_(windows) {}

    /// The screen with the centre of the front window; the primary one when there is no such window.
    std::optional<Screen> mainScreen() const override;

    /// Compositors have one depth for all screens, so this is the primary one.
    std::optional<Screen> deepestScreen() const override;

private:
    std::int32_t numberOf(const QString& name) const;

    const CompositorWindows& windows_;
    mutable std::map<QString, std::int32_t>
        numbers_; ///< By connector, so that one that comes back has its own.
};

} // namespace quorvane
