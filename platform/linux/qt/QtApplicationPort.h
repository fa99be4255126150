#pragma once

#include "platform/Application.h"
#include "platform/linux/qt/WindowHost.h"

namespace quorvane {

/// This program as a Qt application.
class QtApplicationPort : public Application {
public:
    /// The connection must outlive this object.
    explicit QtApplicationPort(WindowHost& host) : host_(host) {}

    std::string localizedString(std::string_view key) const override;
    std::string shortVersion() const override;
    void activateIgnoringOtherApps() override;
    void terminate() override;

private:
    WindowHost& host_;
};

} // namespace quorvane
