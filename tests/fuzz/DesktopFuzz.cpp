// What applications and the desktop say: their files, their windows' properties, the look of things.

#include "fuzz/FuzzTargets.h"
#include "platform/linux/appearance/XSettings.h"
#include "platform/linux/desktop-files/DesktopEntry.h"
#include "platform/linux/x11/CompoundText.h"
#include "platform/linux/x11/XProperties.h"

#include <cstdlib>

namespace quorvane {

void readDesktopEntry(std::string_view bytes) {
    static const auto suffixes = localeSuffixes("de_AT.UTF-8@euro");
    const auto entry = parseDesktopEntry(bytes, suffixes);
    if (entry && entry->name.empty()) std::abort();
    localeSuffixes(bytes);
}

void readWindowProperty(std::string_view bytes) {
    fromCompoundText(bytes);
    if (fromLatin1(bytes).size() < bytes.size()) std::abort();
}

void readDesktopSettings(std::string_view bytes) {
    for (const auto* name : {"Net/ThemeName", "Gtk/FontName", ""})
        textOfXSettings(bytes, name);
}

} // namespace quorvane
