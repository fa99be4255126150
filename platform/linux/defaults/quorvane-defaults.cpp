// Reads and changes settings from the command line, also while the program runs.

#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "platform/linux/defaults/PropertyListBytes.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

using Arguments = std::vector<std::string>;

enum ExitStatus { success = 0, failure = 1, misuse = 2 };

constexpr auto usage = "usage: quorvane-defaults domains\n"
                       "       quorvane-defaults read DOMAIN [KEY]\n"
                       "       quorvane-defaults write DOMAIN KEY TYPE VALUE\n"
                       "       quorvane-defaults delete DOMAIN KEY\n"
                       "       quorvane-defaults dict-add DOMAIN KEY ENTRY TYPE VALUE\n"
                       "       quorvane-defaults dict-remove DOMAIN KEY ENTRY\n"
                       "DOMAIN is a name, `standard` or `shared`; TYPE is -bool, -int, -string or -xml.\n";

constexpr std::chrono::seconds lockPatience{5};

std::string domainOf(const std::string& name) {
    if (name == "standard") return std::string(maker::bundleIdentifier);
    if (name == "shared") return std::string(maker::sharedSuiteName);
    return name;
}

DefaultsFile open(const std::string& domain) {
    const auto folder = LinuxUserDefaults::configFolder();
    return DefaultsFile(folder.empty() ? folder : folder / LinuxUserDefaults::fileNameOf(domainOf(domain)));
}

/// Half as deep as a file may be, since the value goes into one.
PropertyList xmlValue(const std::string& text) {
    const auto node = readPropertyList(text, maximumPropertyListNesting / 2);
    if (!node) return {};
    return propertyListOf(node.get());
}

PropertyList integerValue(const std::string& text) {
    std::int64_t value = 0;
    const auto* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end) return {};
    return value;
}

PropertyList booleanValue(const std::string& text) {
    if (text == "true" || text == "yes" || text == "YES" || text == "1") return true;
    if (text == "false" || text == "no" || text == "NO" || text == "0") return false;
    return {};
}

/// Nothing when the text is no value of the type.
PropertyList valueOf(const std::string& type, const std::string& text) {
    if (type == "-string") return text;
    if (type == "-bool") return booleanValue(text);
    if (type == "-int") return integerValue(text);
    if (type == "-xml") return xmlValue(text);
    return {};
}

std::string textOf(const PropertyList& value) {
    if (const auto* text = value.string()) return *text + "\n";
    if (const auto* integer = value.integer()) return std::to_string(*integer) + "\n";
    if (const auto* boolean = value.boolean()) return *boolean ? "true\n" : "false\n";
    return xmlOf(nodeOf(value));
}

ExitStatus printDomains() {
    std::printf("standard %s\nshared   %s\n", domainOf("standard").c_str(), domainOf("shared").c_str());
    return success;
}

ExitStatus read(const DefaultsFile& file, const std::string* key) {
    const auto value = key ? file.contents()[*key] : file.contents();
    if (value.isNothing()) return failure;
    std::fputs(textOf(value).c_str(), stdout);
    return success;
}

ExitStatus store(DefaultsFile& file, const std::string& key, PropertyList value) {
    const auto error = file.apply({{key, std::move(value)}}, Durability::durable, lockPatience);
    if (!error) return success;
    std::fprintf(stderr, "quorvane-defaults: %s cannot be written: %s\n", file.path().c_str(),
                 error.message().c_str());
    return failure;
}

/// None when the arguments make no command.
std::optional<ExitStatus> run(const Arguments& arguments) {
    const auto count = arguments.size();
    const auto is = [&](const char* name, std::size_t size) { return count == size && arguments[0] == name; };
    if (is("domains", 1)) return printDomains();
    if (count < 2) return std::nullopt;
    auto file = open(arguments[1]);
    if (is("read", 2)) return read(file, nullptr);
    if (is("read", 3)) return read(file, &arguments[2]);
    if (is("delete", 3)) return store(file, arguments[2], {});
    if (is("dict-remove", 4))
        return store(file, arguments[2], file.contents()[arguments[2]].with(arguments[3], {}));
    if (!is("write", 5) && !is("dict-add", 6)) return std::nullopt;
    const auto value = valueOf(arguments[count - 2], arguments[count - 1]);
    if (value.isNothing()) return std::nullopt;
    return store(file, arguments[2],
                 count == 5 ? value : file.contents()[arguments[2]].with(arguments[3], value));
}

} // namespace
} // namespace quorvane

int main(int count, char** arguments) {
    const auto status = quorvane::run(quorvane::Arguments(arguments + 1, arguments + count));
    if (status) return *status;
    std::fputs(quorvane::usage, stderr);
    return quorvane::misuse;
}
