#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// What one `.desktop` file says about an application.
struct DesktopEntry {
    std::string id;             ///< The desktop-file id without `.desktop`, like "org.kde.kate".
    std::string path;           ///< The file.
    std::string name;           ///< In the user's language.
    std::string icon;           ///< A theme icon's name or a path; empty when there is none.
    std::string program;        ///< Base name of the program that Exec starts; empty when there is none.
    std::string startupWmClass; ///< Empty when there is none.
    bool isHidden = false;      ///< The file says that the application is to count as not installed.
    bool runsInTerminal = false;
    bool noDisplay = false; ///< Not for menus; an application all the same.
    std::string tryExec;    ///< A program without which menus do not show it; empty when there is none.
    std::vector<std::string> onlyShowIn; ///< The desktops whose menus show it; empty when all do.
    std::vector<std::string> notShowIn;  ///< The desktops whose menus do not.
};

/// The locale suffixes of a key that fit a POSIX locale name, best first: for "de_AT.UTF-8@euro" these are
/// "de_AT@euro", "de_AT", "de@euro" and "de".
std::vector<std::string> localeSuffixes(std::string_view locale);

/// The entry that the text of a `.desktop` file describes, without id and path. None when it is malformed or
/// does not describe an application.
std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                              const std::vector<std::string>& suffixes);

} // namespace quorvane
