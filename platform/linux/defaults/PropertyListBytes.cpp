#include "platform/linux/defaults/PropertyListBytes.h"

#include <algorithm>

#include <plist/plist.h>

#include "platform/linux/defaults/PropertyListShape.h"

namespace quorvane {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // some editors write one, libplist knows none
constexpr std::string_view binaryMark = "bplist";

/// How large a binary list may become when all that it shares is copied: those that programs write share
/// texts and numbers, and hardly grow.
std::size_t largestExpansion(std::size_t size) {
    constexpr std::size_t always = std::size_t{1} << 20, timesAsMuch = 16;
    return std::min(maximumPropertyListSize, always + timesAsMuch * size);
}

} // namespace

PropertyListNode readPropertyList(std::string_view bytes) {
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    if (bytes.size() > maximumPropertyListSize) return nullptr;
    const auto size = static_cast<std::uint32_t>(bytes.size());
    plist_t node = nullptr;
    // libplist reads, writes and frees containers by recursion and copies what a binary list shares, so a
    // small hostile file could exhaust the stack or the memory. The reader is not left to its guess, either:
    // newer ones know formats that are not looked through here.
    if (bytes.starts_with(binaryMark)) {
        if (isHarmlessBinary(bytes, maximumPropertyListNesting, largestExpansion(bytes.size())))
            plist_from_bin(bytes.data(), size, &node);
    } else if (isHarmlessXml(bytes, maximumPropertyListNesting)) {
        plist_from_xml(bytes.data(), size, &node);
    }
    return PropertyListNode(node);
}

std::optional<std::string> xmlOf(const PropertyListNode& node) {
    char* xml = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node.get(), &xml, &length);
    const std::unique_ptr<char, decltype(&plist_to_xml_free)> owner(xml, plist_to_xml_free);
    if (!xml || length == 0) return std::nullopt;
    std::string text(xml, length);
    std::erase(text, '\0'); // strings of binary lists may hold them, XML cannot
    return text;
}

} // namespace quorvane
