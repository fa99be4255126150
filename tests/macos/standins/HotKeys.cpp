#include <cstring>

#include "macos/standins/StandIns.h"

using namespace quorvane::standins;

namespace {

EventHandlerUPP handlerFunction = nullptr;
void* handlerUserData = nullptr;

} // namespace

std::string System::combination(UInt32 keyCode, UInt32 modifiers) {
    return std::to_string(keyCode) + ' ' + std::to_string(modifiers);
}

OSStatus System::press(UInt32 keyCode, UInt32 modifiers) {
    const auto text = combination(keyCode, modifiers & ~UInt32{alphaLock});
    auto* key = find(hotKey, text);
    if ((!key || !key->isExclusive) && combinationsOfOthers.contains(text)) ++pressesOfOthers;
    if (!key || !find(handler, "")) return eventNotHandledErr;
    return handlerFunction(nullptr, reinterpret_cast<EventRef>(key), handlerUserData);
}

EventTargetRef GetEventDispatcherTarget() {
    return reinterpret_cast<EventTargetRef>(&handlerFunction);
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP function, ItemCount count,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* reference) {
    const bool isForHotKeys = count == 1 && types->eventClass == kEventClassKeyboard &&
                              types->eventKind == kEventHotKeyPressed && target == GetEventDispatcherTarget();
    if (!isForHotKeys || !system().installsHandlers || find(handler, "")) return paramErr;
    handlerFunction = function;
    handlerUserData = userData;
    *reference = add<EventHandlerRef>({.type = handler});
    return noErr;
}

OSStatus RemoveEventHandler(EventHandlerRef reference) {
    use(reference, __func__, handler).references = 0;
    return noErr;
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type, EventParamType*,
                           ByteCount room, ByteCount*, void* data) {
    const auto& id = use(event, __func__, hotKey).id;
    if (name != kEventParamDirectObject || type != typeEventHotKeyID || room != sizeof id) return paramErr;
    std::memcpy(data, &id, room);
    return noErr;
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef* reference) {
    if (target != GetEventDispatcherTarget()) return paramErr;
    const auto text = System::combination(keyCode, modifiers);
    const auto others = system().combinationsOfOthers.find(text);
    const bool isTaken = others != system().combinationsOfOthers.end() && others->second;
    if (isTaken || find(hotKey, text)) return eventHotKeyExistsErr;
    constexpr OptionBits exclusive = 1;
    *reference = add<EventHotKeyRef>(
        {.type = hotKey, .text = text, .id = id, .isExclusive = (options & exclusive) != 0});
    return noErr;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef reference) {
    use(reference, __func__, hotKey).references = 0;
    return noErr;
}
