#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

/// A window property that has been asked for and is read later: make all requests first, then read them all,
/// and many properties cost one round trip. A property that is missing, has another format or whose window
/// has just vanished reads as nothing.
///
/// Can be read once.
class XProperty {
public:
    XProperty(XConnection& x, xcb_window_t window, std::string_view name);
    XProperty(XProperty&& other) noexcept;
    XProperty& operator=(XProperty&&) = delete;
    ~XProperty();

    /// The values of a 32-bit property: cardinals, atoms or windows.
    std::vector<std::uint32_t> values();

    /// A text property as UTF-8: UTF8_STRING, STRING (Latin-1) or COMPOUND_TEXT.
    std::optional<std::string> text();

    /// The NUL-terminated parts of a text property.
    std::vector<std::string> texts();

    /// After it was read: the server refused to tell, because the window has vanished.
    bool isRefused() const { return isRefused_; }

    /// The request's number: what the server has told before it is known by now.
    std::uint32_t sequence() const { return cookie_.sequence; }

private:
    XcbReply<xcb_get_property_reply_t> take(std::uint8_t format);

    XConnection* x_;
    bool isUnderWay_ = true;
    xcb_get_property_cookie_t cookie_;
    bool isRefused_ = false;
};

/// Latin-1 as UTF-8.
std::string fromLatin1(std::string_view bytes);

} // namespace quorvane
