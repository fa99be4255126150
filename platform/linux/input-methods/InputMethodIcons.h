#pragma once

#include <functional>
#include <string>

#include "platform/Image.h"

namespace quorvane {

/// How a daemon describes the icon of one of its input methods. Anything may be empty.
struct InputMethodIcon {
    std::string reference; ///< A path, or a name in the icon theme.
    std::string symbol;    ///< A sign or a few letters: `拼`.
    std::string code;      ///< Of its language, else its name; the last resort.
};

/// Where icons of input methods come from.
struct InputMethodIcons {
    /// Makes the template icon of a sign or a few letters; null when no font has them.
    std::function<ImageRef(const std::string& letters)> draw;
    /// The picture at a path or of a name in the icon theme; null when there is none.
    std::function<ImageRef(const std::string& reference)> find;

    /// The input method's own picture, else its symbol, else the letters of its language. A picture that
    /// many input methods share tells nothing, and is not looked for.
    ImageRef iconOf(const InputMethodIcon& described) const;
};

} // namespace quorvane
