#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "platform/linux/files/FolderWatch.h"

namespace quorvane {

/// Where the IBus daemon of this display can be reached: by the environment, else as the daemon has written
/// into a file. That may be stale, or another program's.
class IBusAddress {
public:
    /// `changed` is called from the event loop when the daemon may have written another address.
    explicit IBusAddress(std::function<void()> changed);

    /// Empty when there is none.
    std::string current() const;

private:
    std::filesystem::path file_;
    FolderWatch watch_;
};

/// The name of the file for a display like `:0.0`.
std::string ibusAddressFileName(std::string_view machineID, std::string_view display);

/// The address in the contents of such a file; empty when there is none.
std::string ibusAddressIn(std::string_view contents);

} // namespace quorvane
