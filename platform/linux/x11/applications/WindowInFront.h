#pragma once

#include <cstdint>
#include <map>

namespace quorvane {

/// Which of the managed windows the user types in, told from what the X server and the window manager say of
/// them. No standard prescribes the order in which they say it: some window managers announce a new window
/// before they give it the focus, and list it last.
///
/// The server's word on the focus counts for more: announcements lag behind when the focus moves quickly. But
/// a window tells of its focus only once somebody knows it and has asked for that, and one that has just been
/// opened may have got the focus before. Its announcement counts, therefore, as soon as the window that had
/// the focus loses it; that of a window which has told of its focus does not, because it would tell again.
class WindowInFront {
public:
    using Window = std::uint32_t;
    static constexpr Window none = 0;

    // What happens. True when `window` answers differently now.
    bool announced(Window window); ///< By the window manager, as the active one; this makes it a managed one.
    bool focused(Window window);   ///< Also those of windows that are not managed, like menus.
    bool unfocused(Window window);
    bool listed(Window window); ///< As a managed one.
    bool closed(Window window);

    bool isManaged(Window window) const { return managed_.contains(window); }

    /// None before the first one, and once it was closed, until there is another one.
    Window window() const { return front_; }

private:
    bool moveTo(Window window);

    struct Managed {
        bool tellsFocus = false; ///< It has done so.
    };
    std::map<Window, Managed> managed_;
    Window front_ = none;
    Window focused_ = none; ///< As far as windows have told.
    Window coming_ = none;  ///< Announced while another one has the focus.
};

} // namespace quorvane
