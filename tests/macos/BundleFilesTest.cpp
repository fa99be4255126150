// What the system reads about the program before it starts it.

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "platform/linux/defaults/PropertyListBytes.h"
#include "platform/linux/defaults/PropertyListNode.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

PropertyList entriesOf(const std::string& file) {
    std::ifstream stream(std::string(QUORVANE_BUNDLE_FILES) + "/" + file, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    const auto entries = readPropertyList(bytes);
    EXPECT_TRUE(entries) << file;
    return entries ? propertyListOf(entries.get()) : PropertyList();
}

TEST(BundleFiles, SayWhatTheSystemHasToKnow) {
    const std::tuple<const char*, const char*, PropertyList> wanted[] = {
        {"Info.plist", "CFBundleIdentifier", std::string(maker::bundleIdentifier)},
        {"Info.plist", "CFBundleExecutable", "Quorvane"},
        {"Info.plist", "CFBundlePackageType", "APPL"},
        {"Info.plist", "CFBundleIconFile", "Quorvane"},
        {"Info.plist", "CFBundleDevelopmentRegion", "en"},
        {"Info.plist", "CFBundleLocalizations",
         PropertyList::Array{"en", "de", "es", "fr", "ja", "ko", "ru", "zh-Hans", "zh-Hant"}},
        {"Info.plist", "CFBundleShortVersionString", QUORVANE_VERSION},
        {"Info.plist", "CFBundleVersion", QUORVANE_VERSION},
        {"Info.plist", "LSMinimumSystemVersion", "11.0"},
        {"Info.plist", "LSUIElement", true},
        {"Info.plist", "NSAppSleepDisabled", true},
        {"Info.plist", "NSHighResolutionCapable", true},
        {"Info.plist", "NSPrincipalClass", "NSApplication"},
        // The program starts a new instance of itself while it still runs.
        {"Info.plist", "LSMultipleInstancesProhibited", PropertyList()},
        {"Info.plist", "NSMainNibFile", PropertyList()},
        {"HelperInfo.plist", "CFBundleIdentifier", std::string(maker::loginItemIdentifier)},
        {"HelperInfo.plist", "CFBundleExecutable", "QuorvaneProHelper"},
        {"HelperInfo.plist", "LSBackgroundOnly", true},
        {"HelperInfo.plist", "LSMinimumSystemVersion", "11.0"},
        {"Quorvane.entitlements", "com.apple.security.application-groups",
         PropertyList::Array{std::string(maker::sharedSuiteName)}},
        {"Quorvane.entitlements", "com.apple.security.get-task-allow", PropertyList()},
    };
    for (const auto& [file, key, value] : wanted)
        EXPECT_EQ(entriesOf(file)[key], value) << file << ": " << key;
}

} // namespace
} // namespace quorvane
