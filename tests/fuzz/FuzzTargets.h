#pragma once

#include <string_view>

namespace quorvane {

/// A reader of bytes from outside. Whatever they are, it neither crashes nor contradicts itself, at which the
/// target aborts.
struct FuzzTarget {
    const char* name; ///< Its seeds are in the folder of that name.
    void (*read)(std::string_view bytes);
};

void readPropertyListBytes(std::string_view bytes);
void readDesktopEntry(std::string_view bytes);
void readWindowProperty(std::string_view bytes);
void readDesktopSettings(std::string_view bytes);
void readNotification(std::string_view bytes);
void readDaemonsAnswer(std::string_view bytes);

inline constexpr FuzzTarget fuzzTargets[] = {
    {"property-list", readPropertyListBytes}, {"desktop-entry", readDesktopEntry},
    {"window-property", readWindowProperty},  {"desktop-settings", readDesktopSettings},
    {"notification", readNotification},       {"daemons-answer", readDaemonsAnswer},
};

} // namespace quorvane
