#include "platform/linux/defaults/PropertyListBytes.h"

#include <plist/plist.h>

#include "platform/linux/defaults/PropertyListShape.h"

namespace quorvane {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // some editors write one, libplist knows none
constexpr std::string_view binaryMark = "bplist";

} // namespace

PropertyListNode readPropertyList(std::string_view bytes, int nesting) {
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    if (bytes.size() > maximumPropertyListSize) return nullptr;
    // libplist reads, writes and frees containers by recursion and copies what a binary list shares, so a
    // small hostile file could exhaust the stack or the memory.
    const bool isHarmless = bytes.starts_with(binaryMark)
                                ? isHarmlessBinary(bytes, nesting, maximumPropertyListSize)
                                : isHarmlessXml(bytes, nesting);
    if (!isHarmless) return nullptr;
    plist_t node = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
    return PropertyListNode(node);
}

std::string xmlOf(const PropertyListNode& node) {
    char* xml = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node.get(), &xml, &length);
    const std::unique_ptr<char, decltype(&plist_to_xml_free)> owner(xml, plist_to_xml_free);
    std::string text(xml ? std::string_view(xml, length) : std::string_view());
    std::erase(text, '\0'); // strings of binary lists may hold them, XML cannot
    return text;
}

} // namespace quorvane
