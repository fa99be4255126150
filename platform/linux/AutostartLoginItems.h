#pragma once

#include <filesystem>
#include <string>

#include "platform/LoginItems.h"

namespace quorvane {

/// Login items as XDG autostart entries: one file in the user's autostart folder, named after the login item.
///
/// Desktops let the user switch an entry off by writing `Hidden=true` or `X-GNOME-Autostart-enabled=false`
/// into it. That is the user's own word: an entry that is enabled again keeps such lines, and only its
/// command is brought up to date, since the program may have moved. Disabling removes the file.
class AutostartLoginItems : public LoginItems {
public:
    /// The user's autostart folder, and the program that an entry starts, as an absolute path.
    AutostartLoginItems(std::filesystem::path folder, std::string program);

    bool setEnabled(std::string_view identifier, bool enabled) override;

private:
    bool write(const std::filesystem::path& file) const;

    std::filesystem::path folder_;
    std::string program_;
};

} // namespace quorvane
