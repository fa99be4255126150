#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// This program, as the desktop sees it.
class Application {
public:
    virtual ~Application() = default;

    /// The text in the user's language; the key itself, which is the English text, when it has none.
    virtual std::string localizedString(std::string_view key) const = 0;

    /// The version that users are told, like "1.2".
    virtual std::string shortVersion() const = 0;

    /// Brings this program to the front, whatever is there now.
    virtual void activateIgnoringOtherApps() = 0;

    /// Ends the program the normal way.
    virtual void terminate() = 0;
};

} // namespace quorvane
