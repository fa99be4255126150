#pragma once

#include "platform/Application.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// This program as a Qt application.
class QtApplicationPort : public Application {
public:
    /// The connection must outlive this object.
    explicit QtApplicationPort(XConnection& x) : x_(x) {}

    std::string localizedString(std::string_view key) const override;
    std::string shortVersion() const override;
    void activateIgnoringOtherApps() override;
    void terminate() override;

private:
    XConnection& x_;
};

} // namespace quorvane
