#pragma once

#include <functional>

#include <QObject>

namespace quorvane {

/// What the user prefers. The numbers are those of the desktop portal.
enum class PreferredScheme { none = 0, dark = 1, light = 2 };

/// The preference that the desktop portal tells, now and whenever it changes. The portal is asked
/// asynchronously, is never started by asking, and may come later; without one there is no preference.
class PortalColorScheme : public QObject {
    Q_OBJECT

public:
    /// `changed` is called from the event loop.
    explicit PortalColorScheme(std::function<void()> changed);

    PreferredScheme preferred() const { return preferred_; }

private:
    Q_SLOT void ask();
    Q_SLOT void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    void setPreferred(PreferredScheme preferred);

    std::function<void()> changed_;
    PreferredScheme preferred_ = PreferredScheme::none;
};

} // namespace quorvane
