// Settings files. What can be read can be written and read again, and reading by entry is reading.

#include <plist/plist.h>

#include <cstdlib>

#include "fuzz/FuzzTargets.h"
#include "platform/linux/defaults/PropertyListBytes.h"
#include "platform/linux/defaults/SettingsText.h"

namespace quorvane {
namespace {

/// As a file of ours: equal numbers that are none are equal here.
std::string fileOf(const PropertyList& value) {
    return xmlOf(nodeOf(value)).value();
}

std::string bytesOf(const SettingsText& text) {
    std::string bytes;
    for (const auto piece : text.pieces())
        bytes += piece;
    return bytes;
}

SettingsText textOf(std::string_view file) {
    return SettingsText::read(file, {}).value();
}

} // namespace

void readPropertyListBytes(std::string_view bytes) {
    const auto node = readPropertyList(bytes);
    const auto text = SettingsText::read(bytes, {});
    const bool isDictionary = node && plist_get_node_type(node.get()) == PLIST_DICT;
    if (text.has_value() != isDictionary) std::abort();
    if (!node) return;
    if (!readPropertyList(xmlOf(node).value())) std::abort();
    const auto value = propertyListOf(node.get());
    if (!readPropertyList(fileOf(value))) std::abort();
    if (!text) return;

    if (fileOf(text->values()) != fileOf(value)) std::abort();
    static const auto another = textOf(
        fileOf(PropertyList::Dictionary{{"autoInput", PropertyList::Dictionary{{"id", 1}}}, {"z", 2}}));
    if (fileOf(SettingsText::read(bytes, another)->values()) != fileOf(value)) std::abort();
    const auto file = bytesOf(*text);
    if (bytesOf(textOf(file)) != file) std::abort();
}

} // namespace quorvane
