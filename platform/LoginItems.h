#pragma once

#include <optional>
#include <string_view>

namespace quorvane {

/// The programs that the user's session starts when the user logs in.
class LoginItems {
public:
    virtual ~LoginItems() = default;

    /// Has the session start the login item of this identifier, which starts this program, or not any more.
    /// False when that failed. Repeating it is harmless.
    virtual bool setEnabled(std::string_view identifier, bool enabled) = 0;

    /// Whether the session starts it; none when the desktop does not tell.
    virtual std::optional<bool> isEnabled(std::string_view identifier) const = 0;
};

} // namespace quorvane
