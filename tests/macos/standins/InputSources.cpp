#include <algorithm>
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
    std::ranges::copy_if(system().sources, std::back_inserter(sources), [&](const auto& source) {
        return !id || PropertyList(source)["TISPropertyInputSourceID"] == PropertyList(*id);
    });
    return sources;
}

/// Its properties end with it.
const void* makeSource(System::Dictionary properties) {
    const bool hasIcon = properties.erase("TISPropertyIconRef") > 0;
    const auto address = properties.extract("TISPropertyIconImageURL");
    Object source{.type = inputSource, .value = hasIcon ? 1.0 : 0.0, .parts = {addValue(properties)}};
    if (address) source.parts.push_back(addObject({.type = url, .parts = {addValue(address.mapped())}}));
    return addObject(std::move(source));
}

TISInputSourceRef copySelected(std::string_view caller) {
    requireMain(caller);
    const auto selected = sourcesOfID(&system().selectedID);
    if (selected.empty()) return nullptr;
    return static_cast<TISInputSourceRef>(const_cast<void*>(makeSource(selected.front())));
}

} // namespace

void System::select(const std::string& id) {
    if (std::exchange(selectedID, id) != id) ++selectionsTold;
}

CFArrayRef TISCreateInputSourceList(CFDictionaryRef properties, Boolean) {
    requireMain(__func__);
    const auto* id = properties ? CFDictionaryGetValue(properties, kTISPropertyInputSourceID) : nullptr;
    Object list{.type = array};
    for (auto& source : sourcesOfID(id ? &static_cast<const Object*>(id)->text : nullptr))
        list.parts.push_back(makeSource(std::move(source)));
    if (list.parts.empty() && system().emptyListsAreNull) return nullptr;
    return static_cast<CFArrayRef>(addObject(std::move(list)));
}

TISInputSourceRef TISCopyCurrentKeyboardInputSource() {
    return copySelected(__func__);
}

TISInputSourceRef TISCopyCurrentKeyboardLayoutInputSource() {
    return copySelected(__func__);
}

TISInputSourceRef TISCopyCurrentASCIICapableKeyboardLayoutInputSource() {
    requireMain(__func__);
    const auto& layout = system().asciiCapableLayout;
    return layout.empty() ? nullptr : static_cast<TISInputSourceRef>(const_cast<void*>(makeSource(layout)));
}

void* TISGetInputSourceProperty(TISInputSourceRef reference, CFStringRef key) {
    const auto* source = use(reference, __func__, inputSource);
    if (!source) return nullptr;
    if (key == kTISPropertyIconRef) return source->value != 0 ? icon : nullptr;
    const auto* property = key == kTISPropertyIconImageURL
                               ? (source->parts.size() > 1 ? source->parts[1] : nullptr)
                               : CFDictionaryGetValue(static_cast<CFDictionaryRef>(source->parts[0]), key);
    return const_cast<void*>(property);
}

OSStatus TISSelectInputSource(TISInputSourceRef reference) {
    const auto* id = TISGetInputSourceProperty(reference, kTISPropertyInputSourceID);
    if (!id) return paramErr;
    const auto& text = static_cast<const Object*>(id)->text;
    const auto sources = sourcesOfID(&text);
    const std::string_view capable = "TISPropertyInputSourceIsSelectCapable";
    if (sources.empty() || !PropertyList(sources.front())[capable].boolValue()) return paramErr;
    system().select(text);
    return noErr;
}
