#pragma once

#include <functional>
#include <optional>
#include <string>

namespace quorvane {

/// Lets the user choose an application.
class OpenPanel {
public:
    virtual ~OpenPanel() = default;

    /// Shows the panel, starting where applications are installed, and returns at once. When the user has
    /// chosen one, the handler gets its bundle identifier; none when what was chosen is no application. It is
    /// not called when the user cancels.
    virtual void
    beginChoosingApplication(std::function<void(std::optional<std::string> bundleIdentifier)> completion) = 0;
};

} // namespace quorvane
