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

std::vector<System::Dictionary> sourcesOfID(const std::string* id, bool includeAllInstalled = false) {
    std::vector<System::Dictionary> sources;
    const auto hasID = [&](const auto& each) {
        return !id || PropertyList(each)["TISPropertyInputSourceID"] == PropertyList(*id);
    };
    std::ranges::copy_if(system().sources, std::back_inserter(sources), hasID);
    if (includeAllInstalled)
        std::ranges::copy_if(system().installedSources, std::back_inserter(sources), hasID);
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

TISInputSourceRef makeEnabledSource(const std::string& id) {
    const auto found = sourcesOfID(&id);
    return found.empty() ? nullptr : makeSource(found.front());
}

} // namespace

void System::select(const std::string& id) {
    if (std::exchange(selectedID, id) != id) ++selectionsTold;
}

CFArrayRef TISCreateInputSourceList(CFDictionaryRef properties, Boolean includeAllInstalled) {
    assertMainQueue(__func__);
    const auto* id = properties ? CFDictionaryGetValue(properties, kTISPropertyInputSourceID) : nullptr;
    Object list{.type = array};
    for (auto& each : sourcesOfID(id ? &use(id, __func__, string).text : nullptr, includeAllInstalled != 0))
        list.parts.push_back(makeSource(std::move(each)));
    return list.parts.empty() && system().emptyListsAreNull ? nullptr : add<CFArrayRef>(std::move(list));
}

TISInputSourceRef TISCopyCurrentKeyboardInputSource() {
    assertMainQueue(__func__);
    return makeEnabledSource(system().selectedID);
}

TISInputSourceRef TISCopyCurrentKeyboardLayoutInputSource() {
    assertMainQueue(__func__);
    const auto& layouts = system().layoutsOfInputMethods;
    const auto layout = layouts.find(system().selectedID);
    return makeEnabledSource(layout == layouts.end() ? system().selectedID : layout->second);
}

TISInputSourceRef TISCopyCurrentASCIICapableKeyboardLayoutInputSource() {
    assertMainQueue(__func__);
    const auto& layout = system().asciiCapableLayout;
    return layout.empty() ? nullptr : makeSource(layout);
}

void* TISGetInputSourceProperty(TISInputSourceRef reference, CFStringRef key) {
    assertMainQueue(__func__);
    const auto& object = use(reference, __func__, source);
    if (key == kTISPropertyIconRef) return object.value != 0 ? icon : nullptr;
    const void* address = object.parts.size() > 1 ? object.parts[1] : nullptr;
    const auto* property = key == kTISPropertyIconImageURL
                               ? address
                               : CFDictionaryGetValue(static_cast<CFDictionaryRef>(object.parts.at(0)), key);
    return const_cast<void*>(property);
}

OSStatus TISSelectInputSource(TISInputSourceRef reference) {
    assertMainQueue(__func__);
    const auto& id = use(TISGetInputSourceProperty(reference, kTISPropertyInputSourceID), __func__, string);
    const auto sources = sourcesOfID(&id.text);
    if (sources.empty() || !sources.front().at("TISPropertyInputSourceIsSelectCapable").boolValue())
        return paramErr;
    system().select(id.text);
    return noErr;
}
