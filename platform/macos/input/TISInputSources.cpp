#include "platform/macos/input/TISInputSources.h"

#include <utility>

#include "platform/macos/CFRef.h"
#include "platform/macos/CFValues.h"
#include "platform/macos/MainThread.h"

namespace quorvane {
namespace {

using SourceRef = CFRef<TISInputSourceRef>;

/// Null when the system has none.
CFRef<CFArrayRef> listOf(CFDictionaryRef properties) {
    requireMainThread();
    return CFRef<CFArrayRef>::adopt(TISCreateInputSourceList(properties, false));
}

CFRef<CFArrayRef> listOfID(std::string_view id) {
    const auto wanted = makeString(id);
    if (!wanted) return {};
    const void* keys[] = {kTISPropertyInputSourceID};
    const void* values[] = {wanted.get()};
    const auto properties = CFRef<CFDictionaryRef>::adopt(
        CFDictionaryCreate(kCFAllocatorDefault, keys, values, 1, &kCFTypeDictionaryKeyCallBacks,
                           &kCFTypeDictionaryValueCallBacks));
    // Without properties, the list would be that of all sources.
    return properties ? listOf(properties.get()) : CFRef<CFArrayRef>();
}

/// The sources are the list's and end with it, unless they are retained.
std::vector<SourceRef> sourcesIn(const CFRef<CFArrayRef>& list) {
    std::vector<SourceRef> sources;
    const CFIndex count = list ? CFArrayGetCount(list.get()) : 0;
    for (CFIndex i = 0; i < count; ++i) {
        auto* source = const_cast<void*>(CFArrayGetValueAtIndex(list.get(), i));
        sources.push_back(SourceRef::retain(static_cast<TISInputSourceRef>(source)));
    }
    return sources;
}

/// Empty when there is no enabled source of that id.
SourceRef sourceOfID(std::string_view id) {
    const auto sources = sourcesIn(listOfID(id));
    return sources.empty() ? SourceRef() : sources.front();
}

/// Not owned, valid as long as the source.
CFTypeRef propertyOf(const SourceRef& source, CFStringRef key) {
    return source ? TISGetInputSourceProperty(source.get(), key) : nullptr;
}

std::string iconImageURLOf(const SourceRef& source) {
    const auto url = typed<CFURLRef>(propertyOf(source, kTISPropertyIconImageURL), CFURLGetTypeID());
    const auto absolute = CFRef<CFURLRef>::adopt(url ? CFURLCopyAbsoluteURL(url) : nullptr);
    return absolute ? stringOf(CFURLGetString(absolute.get())).value_or("") : "";
}

std::optional<InputSource> describe(const SourceRef& source) {
    auto id = stringOf(propertyOf(source, kTISPropertyInputSourceID));
    if (!id) return std::nullopt;
    const auto category = stringOf(propertyOf(source, kTISPropertyInputSourceCategory));
    const bool isKeyboard = category == stringOf(kTISCategoryKeyboardInputSource);
    return InputSource{
        .id = std::move(*id),
        .category = isKeyboard ? InputSourceCategory::keyboard : InputSourceCategory::other,
        .isSelectCapable =
            booleanOf(propertyOf(source, kTISPropertyInputSourceIsSelectCapable)).value_or(false),
        .hasIconReference = propertyOf(source, kTISPropertyIconRef) != nullptr,
        .iconImageURL = iconImageURLOf(source)};
}

} // namespace

TISInputSources::TISInputSources(DrawIcon drawIcon) : drawIcon_(std::move(drawIcon)) {}

std::vector<InputSource> TISInputSources::createInputSourceList(std::optional<std::string_view> id) const {
    std::vector<InputSource> list;
    for (const auto& source : sourcesIn(id ? listOfID(*id) : listOf(nullptr))) {
        if (auto description = describe(source)) list.push_back(std::move(*description));
    }
    return list;
}

std::optional<InputSource> TISInputSources::copyCurrentKeyboardInputSource() const {
    requireMainThread();
    return describe(SourceRef::adopt(TISCopyCurrentKeyboardInputSource()));
}

std::optional<InputSource> TISInputSources::copyCurrentKeyboardLayoutInputSource() const {
    requireMainThread();
    return describe(SourceRef::adopt(TISCopyCurrentKeyboardLayoutInputSource()));
}

bool TISInputSources::selectInputSource(const InputSource& source) {
    const auto found = sourceOfID(source.id);
    return found && TISSelectInputSource(found.get()) == noErr;
}

std::string TISInputSources::localizedName(const InputSource& source) const {
    return stringOf(propertyOf(sourceOfID(source.id), kTISPropertyLocalizedName)).value_or(source.id);
}

ImageRef TISInputSources::iconOfReference(const InputSource& source) const {
    const auto found = sourceOfID(source.id);
    // An icon is no Core Foundation object: it cannot be retained, but lives as long as the source.
    const auto* icon = propertyOf(found, kTISPropertyIconRef);
    return icon ? drawIcon_(static_cast<IconRef>(const_cast<void*>(icon))) : nullptr;
}

} // namespace quorvane
