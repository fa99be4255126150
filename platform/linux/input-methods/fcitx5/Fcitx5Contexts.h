#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// One place where a program takes text: usually one for each of its windows, made when that is first typed
/// in. Fcitx5 remembers for each of them what it is typed with.
struct Fcitx5Context {
    std::string uuid;
    std::string frontend; ///< The way in which the program uses Fcitx5; may be empty.
    bool hasFocus = false;

    bool isOfDBus() const { return frontend == "dbus"; }

    bool operator==(const Fcitx5Context&) const = default;
};

/// The contexts in Fcitx5's description of itself, which is a text for people; none when it cannot be
/// understood.
std::optional<std::vector<Fcitx5Context>> contextsInDebugInfo(std::string_view text);

} // namespace quorvane
