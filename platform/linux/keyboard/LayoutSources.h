#pragma once

#include "platform/Signal.h"
#include "platform/TextInputSources.h"

namespace quorvane {

/// The input sources of a session before any input method daemon adds its own: keyboard layouts, with ids
/// like `xkb:ru:phonetic`. A selection acts in every program.
class LayoutSources : public TextInputSources {
public:
    /// The selected source is another one now.
    Signal<> selectionChanged;
};

} // namespace quorvane
