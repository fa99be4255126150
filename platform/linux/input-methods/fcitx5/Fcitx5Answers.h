#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using GVariant = struct _GVariant; // NOLINT(bugprone-reserved-identifier): GLib's

namespace quorvane {

/// A program's context, as Fcitx5 describes it.
struct Fcitx5Context {
    std::string uuid;
    bool isOfDBus = false; ///< Its program is told what it is typed with; those of XIM are not.
};

/// What Fcitx5's description of itself says of the focus.
struct Fcitx5Focus {
    bool isUnderstood = false; ///< Versions may describe themselves in other ways.
    std::optional<Fcitx5Context> context;
};
Fcitx5Focus fcitx5FocusIn(std::string_view debugInfo);

/// How Fcitx5 describes one of its input methods.
struct Fcitx5InputMethod {
    std::string name;
    std::string nativeName; ///< In its own language; may be empty.
    std::string icon;       ///< A path, or a name in the icon theme; may be empty.
    std::string label;      ///< A sign or a few letters; may be empty.
};

/// By Fcitx5's own names, of a list "(a(ssssssb))".
std::map<std::string, Fcitx5InputMethod> fcitx5InputMethodsIn(GVariant* answer);

/// What the user types with.
struct Fcitx5Group {
    std::vector<std::string> inputMethods; ///< Their own names, in the user's order.
    std::string layout; ///< The one of these names for which keys are handed through to the X server.
};

/// A group "(sa(ss))"; without those that have no name, and repetitions.
Fcitx5Group fcitx5GroupIn(GVariant* answer);

} // namespace quorvane
