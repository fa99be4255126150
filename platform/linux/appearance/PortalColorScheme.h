#pragma once

#include <functional>

#include <QObject>

#include "platform/linux/dbus/BusName.h"

namespace quorvane {

/// What the user prefers. The numbers are those of the desktop portal.
enum class PreferredScheme { none = 0, dark = 1, light = 2 };

/// The preference that the desktop portal tells, now and whenever it changes. The portal is never waited for
/// nor started by asking, and may come later; without one there is no preference.
class PortalColorScheme : public QObject {
    Q_OBJECT

public:
    /// `changed` is called from the event loop.
    explicit PortalColorScheme(std::function<void()> changed);

    PreferredScheme preferred() const { return preferred_; }

private:
    Q_SLOT void ask();
    void setPreferred(PreferredScheme preferred);

    std::function<void()> changed_;
    PreferredScheme preferred_ = PreferredScheme::none;
    BusName portal_;
    Subscription owners_;
};

} // namespace quorvane
