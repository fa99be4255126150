#include <algorithm>
#include <iterator>
#include <utility>

#include "macos/standins/StandIns.h"

using namespace quorvane;
using namespace quorvane::standins;

const CFStringRef kTISPropertyInputSourceID = constant("TISPropertyInputSourceID");
const CFStringRef kTISPropertyInputSourceCategory = constant("TISPropertyInputSourceCategory");
const CFStringRef kTISPropertyInputSourceIsSelectCapable = constant("TISPropertyInputSourceIsSelectCapable");
const CFStringRef kTISPropertyLocalizedName = constant("TISPropertyLocalizedName");
const CFStringRef kTISPropertyIconRef = constant("TISPropertyIconRef");
const CFStringRef kTISPropertyIconImageURL = constant("TISPropertyIconImageURL");
const CFStringRef kTISPropertyUnicodeKeyLayoutData = constant("TISPropertyUnicodeKeyLayoutData");
const CFStringRef kTISCategoryKeyboardInputSource = constant("TISCategoryKeyboardInputSource");

const IconRef standins::icon = reinterpret_cast<IconRef>(&standins::system());

namespace {

std::vector<System::Dictionary> sourcesOfID(const std::string* id) {
    std::vector<System::Dictionary> sources;
    std::ranges::copy_if(system().sources, std::back_inserter(sources), [&](const auto& each) {
        return !id || PropertyList(each)["TISPropertyInputSourceID"] == PropertyList(*id);
    });
    return sources;
}

/// Its properties end with it.
TISInputSourceRef makeSource(System::Dictionary properties) {
    const bool hasIcon = properties.erase("TISPropertyIconRef") > 0;
    const auto address = properties.extract("TISPropertyIconImageURL");
    Object made{.type = source, .value = hasIcon ? 1.0 : 0.0, .parts = {addValue(properties)}};
    if (address) made.parts.push_back(add({.type = url, .parts = {addValue(address.mapped())}}));
    return add<TISInputSourceRef>(std::move(made));
}

} // namespace

void System::select(const std::string& id) {
    if (std::exchange(selectedID, id) != id) ++selectionsTold;
}

CFArrayRef TISCreateInputSourceList(CFDictionaryRef properties, Boolean) {
    const auto* id = properties ? CFDictionaryGetValue(properties, kTISPropertyInputSourceID) : nullptr;
    Object list{.type = array};
    for (auto& each : sourcesOfID(id ? &use(id, __func__, string).text : nullptr))
        list.parts.push_back(makeSource(std::move(each)));
    return list.parts.empty() && system().emptyListsAreNull ? nullptr : add<CFArrayRef>(std::move(list));
}

TISInputSourceRef TISCopyCurrentKeyboardInputSource() {
    const auto selected = sourcesOfID(&system().selectedID);
    return selected.empty() ? nullptr : makeSource(selected.front());
}

TISInputSourceRef TISCopyCurrentKeyboardLayoutInputSource() {
    return TISCopyCurrentKeyboardInputSource();
}

TISInputSourceRef TISCopyCurrentASCIICapableKeyboardLayoutInputSource() {
    const auto& layout = system().asciiCapableLayout;
    return layout.empty() ? nullptr : makeSource(layout);
}

void* TISGetInputSourceProperty(TISInputSourceRef reference, CFStringRef key) {
    const auto& object = use(reference, __func__, source);
    if (key == kTISPropertyIconRef) return object.value != 0 ? icon : nullptr;
    const void* address = object.parts.size() > 1 ? object.parts[1] : nullptr;
    const auto* property = key == kTISPropertyIconImageURL
                               ? address
                               : CFDictionaryGetValue(static_cast<CFDictionaryRef>(object.parts.at(0)), key);
    return const_cast<void*>(property);
}

OSStatus TISSelectInputSource(TISInputSourceRef reference) {
    const auto& id = use(TISGetInputSourceProperty(reference, kTISPropertyInputSourceID), __func__, string);
    const auto sources = sourcesOfID(&id.text);
    if (sources.empty() || !sources.front().at("TISPropertyInputSourceIsSelectCapable").boolValue())
        return paramErr;
    system().select(id.text);
    return noErr;
}
