#pragma once

#include <string>
#include <vector>

#include "platform/linux/keyboard/LayoutSources.h"
#include "platform/linux/keyboard/PrintedKeyboard.h"

namespace quorvane {

/// A keyboard known by its layouts alone, as where Wayland shows a program no map before it has the focus.
/// They are looked up in the database, and modifiers are where that has them for every PC keyboard.
class LayoutPrintedKeyboard : public PrintedKeyboard {
public:
    /// Needs a QGuiApplication. The layouts must outlive this object.
    explicit LayoutPrintedKeyboard(LayoutSources& layouts);

    ModifierBits modifierBits() override;

    /// Of the first four layouts: compiling one takes some milliseconds.
    std::vector<TypedKeysyms> typedKeysyms() override;

    /// As the toolkit last heard, while a window of this program has the focus.
    std::uint32_t heldState() override;

private:
    std::vector<std::string> layoutIDs() const;

    LayoutSources& layouts_;
    std::vector<std::string> knownIDs_;
    Subscription changes_;
};

} // namespace quorvane
