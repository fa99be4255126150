#pragma once

#include <filesystem>
#include <string>

#include "platform/LoginItems.h"

namespace quorvane {

/// The login item as an XDG autostart entry: a file in the user's autostart folder, named after the program's
/// desktop entry, so that desktops know whose it is.
///
/// Desktops let the user switch an entry off by writing `Hidden=true` or `X-GNOME-Autostart-enabled=false`
/// into it. That is the user's own word: an entry that is enabled again keeps such lines, and only its
/// command is brought up to date, since the program may have moved. Disabling removes the file, unless it is
/// an entry of the user's own, which starts the program as a menu does.
///
/// Earlier versions named the file after the login item. The entry takes the place of such a file.
class AutostartLoginItems : public LoginItems {
public:
    /// The user's autostart folder, the id of the program's desktop entry, and the program as an absolute
    /// path.
    AutostartLoginItems(std::filesystem::path folder, std::string desktopId, std::string program);

    bool setEnabled(std::string_view identifier, bool enabled) override;
    std::optional<bool> isEnabled(std::string_view identifier) const override;

private:
    bool write(const std::filesystem::path& file, const std::filesystem::path& former) const;

    std::filesystem::path folder_;
    std::string desktopId_;
    std::string program_;
};

} // namespace quorvane
