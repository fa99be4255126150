#include "platform/linux/keyboard/LayoutPrintedKeyboard.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include <QGuiApplication>

#include "platform/linux/keyboard/XkbLayout.h"
#include "platform/linux/keyboard/XkbLayoutKeys.h"

namespace quorvane {
namespace {

constexpr std::size_t mostLayouts = 4;

constexpr ModifierBits bitsOfDatabase{.option = 1U << 3, .command = 1U << 6, .numLock = 1U << 4};

} // namespace

LayoutPrintedKeyboard::LayoutPrintedKeyboard(LayoutSources& layouts)
    : layouts_(layouts)
    , knownIDs_(layoutIDs())
    , changes_(layouts.selectionChanged.connect([this] {
        auto ids = layoutIDs();
        if (std::exchange(knownIDs_, ids) != ids) changed.emit();
    })) {}

ModifierBits LayoutPrintedKeyboard::modifierBits() {
    return bitsOfDatabase;
}

std::vector<TypedKeysyms> LayoutPrintedKeyboard::typedKeysyms() {
    std::vector<TypedKeysyms> keysyms;
    for (const auto& id : layoutIDs()) {
        if (const auto layout = layoutOfID(id)) keysyms.push_back(typedKeysymsOf(*layout));
        if (keysyms.size() == mostLayouts) break;
    }
    return keysyms;
}

std::uint32_t LayoutPrintedKeyboard::heldState() {
    const auto held = QGuiApplication::queryKeyboardModifiers();
    std::uint32_t state = 0;
    for (const auto& [modifier, bit] : {std::pair(Qt::ShiftModifier, ModifierBits::shift),
                                        {Qt::ControlModifier, ModifierBits::control},
                                        {Qt::AltModifier, bitsOfDatabase.option},
                                        {Qt::MetaModifier, bitsOfDatabase.command}})
        if (held & modifier) state |= bit;
    return state;
}

std::vector<std::string> LayoutPrintedKeyboard::layoutIDs() const {
    std::vector<std::string> ids;
    for (auto& source : layouts_.createInputSourceList())
        ids.push_back(std::move(source.id));
    return ids;
}

} // namespace quorvane
