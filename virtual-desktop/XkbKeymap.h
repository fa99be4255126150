#pragma once

#include <memory>

#include <xkbcommon/xkbcommon.h>

namespace quorvane {

template <auto unref>
struct XkbUnref {
    template <class T>
    void operator()(T* object) const {
        unref(object);
    }
};

using XkbContext = std::unique_ptr<xkb_context, XkbUnref<xkb_context_unref>>;
using XkbKeymap = std::unique_ptr<xkb_keymap, XkbUnref<xkb_keymap_unref>>;
using XkbState = std::unique_ptr<xkb_state, XkbUnref<xkb_state_unref>>;

} // namespace quorvane
