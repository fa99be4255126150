#include "platform/linux/quorvanectl/DefaultsCommand.h"

#include <charconv>
#include <cstdio>
#include <thread>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "platform/linux/defaults/PropertyListBytes.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

using Arguments = std::vector<std::string>;

enum ExitStatus { success = 0, failure = 1 };

constexpr std::chrono::seconds patience{5};
constexpr std::chrono::milliseconds pauseBetweenTries{50};

std::string domainOf(const std::string& name) {
    if (name == "standard") return std::string(maker::bundleIdentifier);
    if (name == "shared") return std::string(maker::sharedSuiteName);
    return name;
}

DefaultsFile open(const std::string& domain) {
    static SettingsHealth nobodyAsks;
    const auto folder = LinuxUserDefaults::configFolder();
    const auto file = folder.empty() ? folder : folder / LinuxUserDefaults::fileNameOf(domainOf(domain));
    return {file, nobodyAsks};
}

PropertyList xmlValue(const std::string& text) {
    const auto node = readPropertyList(text);
    return node ? propertyListOf(node.get()) : PropertyList();
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
    return xmlOf(nodeOf(value)).value_or("");
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

/// Waits for another process that holds the lock, and for an editor that is half through saving.
std::error_code write(DefaultsFile& file, const SettingsEntries& changes) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (true) {
        auto error = file.write(changes, patience);
        if (error != std::errc::device_or_resource_busy || std::chrono::steady_clock::now() > deadline)
            return error ? error : file.synchronize(patience);
        std::this_thread::sleep_for(pauseBetweenTries);
    }
}

ExitStatus refuse(const std::string& message) {
    std::fprintf(stderr, "quorvanectl: %s\n", message.c_str());
    return failure;
}

/// Nothing as the value removes the key.
ExitStatus store(DefaultsFile& file, const std::string& key, const PropertyList& value) {
    SettingsEntries changes{{key, nullptr}};
    if (!value.isNothing()) {
        const auto reason = refusalOf(key, value);
        if (!reason.empty()) return refuse(key + " is left as it is: " + std::string(reason));
        changes[key] = makeSettingsEntry(key, value);
        if (!changes[key]) return refuse(key + " cannot be made into a property list");
    }
    const auto error = write(file, changes);
    return error ? refuse(file.path().string() + " cannot be written: " + error.message()) : success;
}

ExitStatus remove(DefaultsFile& file, const std::string& key) {
    return file.contents()[key].isNothing() ? failure : store(file, key, {});
}

ExitStatus remove(DefaultsFile& file, const std::string& key, const std::string& entry) {
    const auto& dictionary = file.contents()[key];
    return dictionary[entry].isNothing() ? failure : store(file, key, dictionary.with(entry, {}));
}

} // namespace

std::optional<int> runDefaults(const std::vector<std::string>& arguments) {
    const auto count = arguments.size();
    const auto is = [&](const char* name, std::size_t size) { return count == size && arguments[0] == name; };
    if (is("domains", 1)) return printDomains();
    if (count < 2) return std::nullopt;
    auto file = open(arguments[1]);
    if (is("read", 2)) return read(file, nullptr);
    if (is("read", 3)) return read(file, &arguments[2]);
    if (is("delete", 3)) return remove(file, arguments[2]);
    if (is("dict-remove", 4)) return remove(file, arguments[2], arguments[3]);
    if (!is("write", 5) && !is("dict-add", 6)) return std::nullopt;
    const auto value = valueOf(arguments[count - 2], arguments[count - 1]);
    if (value.isNothing()) return std::nullopt;
    return store(file, arguments[2],
                 count == 5 ? value : file.contents()[arguments[2]].with(arguments[3], value));
}

} // namespace quorvane
