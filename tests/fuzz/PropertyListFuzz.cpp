// Any bytes may stand in a settings file. Those that can be read can be written and read again.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "platform/linux/defaults/PropertyListBytes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvane;
    const auto node = readPropertyList({reinterpret_cast<const char*>(data), size});
    if (!node) return 0;
    if (!readPropertyList(xmlOf(node).value())) std::abort();
    const auto copy = nodeOf(propertyListOf(node.get()));
    if (!readPropertyList(xmlOf(copy).value())) std::abort();
    return 0;
}
