// Reads and writes Quorvane's settings from the command line, while it runs or not.

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <QCoreApplication>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "platform/linux/defaults/PropertyListFormat.h"
#include "settings/Maker.h"

namespace {

using namespace quorvane;

constexpr const char* usage =
    "usage: quorvane-defaults read DOMAIN KEY\n"
    "       quorvane-defaults write DOMAIN KEY TYPE VALUE\n"
    "       quorvane-defaults delete DOMAIN KEY\n"
    "       quorvane-defaults dict-add DOMAIN KEY ENTRY TYPE VALUE\n"
    "       quorvane-defaults dict-remove DOMAIN KEY ENTRY\n"
    "       quorvane-defaults domains\n"
    "DOMAIN is a name or `standard` or `shared`; TYPE is -bool, -int, -string or -xml.\n";

std::string domainOf(const std::string& name) {
    if (name == "standard") return std::string(maker::bundleIdentifier);
    if (name == "shared") return std::string(maker::sharedSuiteName);
    return name;
}

std::optional<PropertyList> valueOf(const std::string& type, const std::string& text) {
    if (type == "-bool") return PropertyList(PropertyList(text).boolValue());
    if (type == "-int") return PropertyList(PropertyList(text).integerValue());
    if (type == "-string") return PropertyList(text);
    if (type == "-xml") return parsePropertyList("<plist version=\"1.0\">" + text + "</plist>");
    return std::nullopt;
}

int write(UserDefaults& defaults, const std::string& key, const PropertyList& value) {
    defaults.setObject(value, key);
    return defaults.synchronize() ? 0 : 1;
}

int runCommand(const std::vector<std::string>& arguments) {
    const auto count = arguments.size();
    const auto command = count > 0 ? arguments[0] : "";
    if (command == "domains" && count == 1) {
        std::printf("standard %s\nshared   %s\n", std::string(maker::bundleIdentifier).c_str(),
                    std::string(maker::sharedSuiteName).c_str());
        return 0;
    }
    if (count < 3) return -1;
    LinuxUserDefaults stores(LinuxUserDefaults::configFolder(), maker::bundleIdentifier);
    const auto defaults = stores.initWithSuiteName(domainOf(arguments[1]));
    const auto& key = arguments[2];
    if (command == "read" && count == 3) {
        const auto value = defaults->objectForKey(key);
        if (!value.isNothing()) std::fputs(toXml(value).c_str(), stdout);
        return value.isNothing() ? 1 : 0;
    }
    if (command == "delete" && count == 3) return write(*defaults, key, {});
    if (command == "write" && count == 5) {
        const auto value = valueOf(arguments[3], arguments[4]);
        return value ? write(*defaults, key, *value) : -1;
    }
    if (command == "dict-remove" && count == 4)
        return write(*defaults, key, defaults->objectForKey(key).with(arguments[3], {}));
    if (command == "dict-add" && count == 6) {
        const auto value = valueOf(arguments[4], arguments[5]);
        return value ? write(*defaults, key, defaults->objectForKey(key).with(arguments[3], *value)) : -1;
    }
    return -1;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication qt(argc, argv);
    const auto status = runCommand(std::vector<std::string>(argv + 1, argv + argc));
    if (status >= 0) return status;
    std::fputs(usage, stderr);
    return 2;
}
