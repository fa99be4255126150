#pragma once

#include <memory>

#include "platform/CellView.h"
#import "platform/macos/AppKit.h"
#include "platform/macos/keyboard/HotKeySuspender.h"
#include "platform/macos/tables/DeferredReload.h"

namespace quorvane {

/// What the widgets of a column have in common.
struct CellSurroundings {
    NSString* _Nonnull columnTitle;               ///< How widgets are called where they cannot be seen.
    id<NSTextFieldDelegate> _Nullable controller; ///< Of the texts that can be edited.
    HotKeySuspender suspendHotKeys;
    std::weak_ptr<DeferredReload> reload; ///< The table's. None has an effect any more.
};

/// A use of a cell. Kept while an action runs, too, so that no widget is taken away by its own action.
inline Subscription useOf(const std::weak_ptr<DeferredReload>& reload) {
    const auto table = reload.lock();
    return table ? table->use() : Subscription();
}

// One widget for each kind of part, without a place yet. It does not keep the controller alive, which may own
// it.

NSView* _Nonnull makeView(const ImageViewPart& part, const CellSurroundings& surroundings);
NSView* _Nonnull makeView(const TextFieldPart& part, const CellSurroundings& surroundings);
NSView* _Nonnull makeView(const PopUpButtonPart& part, const CellSurroundings& surroundings);
NSView* _Nonnull makeView(const CheckBoxPart& part, const CellSurroundings& surroundings);
NSView* _Nonnull makeView(const BoxPart& part, const CellSurroundings& surroundings);
NSView* _Nonnull makeView(const ShortcutRecorderPart& part, const CellSurroundings& surroundings);

} // namespace quorvane
