#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The text of that name among settings in the wire format of XSETTINGS; none when there is no such text, or
/// the bytes are damaged before it.
std::optional<std::string> textOfXSettings(std::string_view bytes, std::string_view name);

/// The settings that a desktop's settings manager publishes on the X server: those of now, whoever the
/// manager is and whenever it comes. Without a manager there are none.
class XSettings {
public:
    /// The connection must outlive this object. `changed` is called from the event loop.
    XSettings(XConnection& x, std::function<void()> changed);
    XSettings(const XSettings&) = delete;
    XSettings& operator=(const XSettings&) = delete;

    std::optional<std::string> text(std::string_view name) const { return textOfXSettings(bytes_, name); }

private:
    void findManager();
    void read();
    void handle(const xcb_generic_event_t& event);

    XConnection& x_;
    std::function<void()> changed_;
    std::string selection_;
    xcb_window_t manager_ = XCB_WINDOW_NONE;
    std::string bytes_;
    Subscription events_;
};

} // namespace quorvane
