#include "platform/linux/input-methods/ibus/IBusAddress.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <utility>

#include <QStandardPaths>

namespace quorvane {
namespace {

std::string environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string machineID() {
    for (const auto* path : {"/var/lib/dbus/machine-id", "/etc/machine-id"}) {
        std::string id;
        if (std::ifstream(path) >> id) return id;
    }
    return "machine-id"; // what IBus says then, too
}

std::filesystem::path addressFile() {
    if (auto file = environmentVariable("IBUS_ADDRESS_FILE"); !file.empty()) return file;
    const std::filesystem::path config =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdString();
    // In a Wayland session the daemon goes by that display's name, whether there is an X server, too, or not.
    auto display = environmentVariable("WAYLAND_DISPLAY");
    if (display.empty()) display = environmentVariable("DISPLAY");
    return config / "ibus" / "bus" / ibusAddressFileName(machineID(), display);
}

} // namespace

std::string ibusAddressFileName(std::string_view machineID, std::string_view display) {
    const auto colon = display.find(':');
    const bool isOfX = colon != std::string_view::npos;
    auto host = isOfX ? display.substr(0, colon) : std::string_view();
    auto number = isOfX ? display.substr(colon + 1) : display;
    number = number.substr(0, number.find('.'));
    if (host.empty()) host = "unix";
    if (number.empty()) number = "0";
    std::string name(machineID);
    return name.append("-").append(host).append("-").append(number);
}

std::string ibusAddressIn(std::string_view contents) {
    constexpr std::string_view key = "IBUS_ADDRESS=";
    while (!contents.empty()) {
        const auto end = contents.find('\n');
        const auto line = contents.substr(0, end);
        if (line.starts_with(key)) return std::string(line.substr(key.size()));
        contents.remove_prefix(end == std::string_view::npos ? contents.size() : end + 1);
    }
    return {};
}

IBusAddress::IBusAddress(std::function<void()> changed)
    : file_(addressFile())
    , watch_(file_.parent_path(), [this, changed = std::move(changed)](std::string_view name) {
        if (name.empty() || name == file_.filename().native()) changed();
    }) {}

std::string IBusAddress::current() const {
    if (auto address = environmentVariable("IBUS_ADDRESS"); !address.empty()) return address;
    std::ifstream file(file_, std::ios::binary);
    return ibusAddressIn(std::string(std::istreambuf_iterator<char>(file), {}));
}

} // namespace quorvane
