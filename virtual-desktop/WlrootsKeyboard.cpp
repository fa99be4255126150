#include "virtual-desktop/WlrootsKeyboard.h"

#include <chrono>
#include <cstring>
#include <stdexcept>
#include <utility>

#include <QTemporaryFile>

#include "virtual-keyboard-unstable-v1-client-protocol.h"

namespace quorvane {
namespace {

constexpr unsigned firstKeycode = 8; // of the hardware's numbers; the protocol's begin with 0

std::uint32_t now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

} // namespace

WlrootsKeyboard::WlrootsKeyboard(const QByteArray& layouts, std::function<unsigned()> selected)
    : selected_(std::move(selected)) {
    const xkb_rule_names names{.rules = "evdev", .model = "pc105", .layout = layouts.constData()};
    keymap_.reset(xkb_keymap_new_from_names(context_.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap_) throw std::runtime_error("no such layouts: " + layouts.toStdString());
    state_.reset(xkb_state_new(keymap_.get()));
    auto* manager =
        client_.bind<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface, 1);
    keyboard_ = client_.keep(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(
        manager, client_.bind<wl_seat>(wl_seat_interface, 1)));

    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(keymap_.get(), XKB_KEYMAP_FORMAT_TEXT_V1), &std::free);
    const auto size = std::strlen(text.get()) + 1;
    QTemporaryFile file;
    file.open();
    file.write(text.get(), static_cast<qint64>(size));
    file.flush();
    zwp_virtual_keyboard_v1_keymap(keyboard_, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file.handle(),
                                   static_cast<std::uint32_t>(size));
    client_.roundTrip();
}

void WlrootsKeyboard::send(std::uint8_t keycode, bool isPressed) {
    const auto changes = xkb_state_update_key(state_.get(), keycode, isPressed ? XKB_KEY_DOWN : XKB_KEY_UP);
    zwp_virtual_keyboard_v1_key(keyboard_, now(), keycode - firstKeycode, isPressed);
    if (changes & XKB_STATE_MODS_EFFECTIVE)
        zwp_virtual_keyboard_v1_modifiers(
            keyboard_, xkb_state_serialize_mods(state_.get(), XKB_STATE_MODS_DEPRESSED),
            xkb_state_serialize_mods(state_.get(), XKB_STATE_MODS_LATCHED),
            xkb_state_serialize_mods(state_.get(), XKB_STATE_MODS_LOCKED), selected_());
    client_.roundTrip();
}

} // namespace quorvane
