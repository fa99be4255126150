#include "platform/linux/keyboard/ModifierBits.h"

#include "platform/GlobalEventMonitor.h"

namespace quorvane {

std::optional<std::uint16_t> ModifierBits::stateOf(std::uint64_t modifierFlags) const {
    const struct {
        std::uint64_t flag;
        std::uint16_t bit;
    } modifiers[] = {{ModifierFlag::shift, shift},
                     {ModifierFlag::control, control},
                     {ModifierFlag::option, option},
                     {ModifierFlag::command, command}};
    unsigned state = 0;
    for (const auto& [flag, bit] : modifiers) {
        if (!(modifierFlags & flag)) continue;
        if (!bit) return std::nullopt;
        state |= bit;
    }
    return static_cast<std::uint16_t>(state);
}

} // namespace quorvane
