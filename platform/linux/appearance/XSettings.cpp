#include "platform/linux/appearance/XSettings.h"

#include <cstdint>
#include <utility>

#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {
namespace {

constexpr const char* settingsProperty = "_XSETTINGS_SETTINGS";

/// Reads from the front of bytes. What is asked for beyond their end is nothing, and so is all that follows.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : rest_(bytes) {}

    std::string_view take(std::size_t length) {
        if (length > rest_.size()) {
            rest_ = {};
            isOver_ = true;
            return {};
        }
        const auto taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    /// Followed by unused bytes that make its length a multiple of four.
    std::string_view takePadded(std::size_t length) {
        const auto taken = take(length);
        take((4 - length % 4) % 4);
        return taken;
    }

    std::uint32_t number(std::size_t size) {
        const auto digits = take(size);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < digits.size(); ++i) {
            const auto digit = digits[isBigEndian_ ? i : digits.size() - 1 - i];
            value = value << 8 | static_cast<unsigned char>(digit);
        }
        return value;
    }

    void setBigEndian(bool isBigEndian) { isBigEndian_ = isBigEndian; }
    bool isOver() const { return isOver_; }

private:
    std::string_view rest_;
    bool isBigEndian_ = false;
    bool isOver_ = false;
};

/// The number in names of selections that there are for each screen.
std::string screenNumber(XConnection& x) {
    int number = 0;
    for (auto it = xcb_setup_roots_iterator(xcb_get_setup(x.xcb())); it.rem; xcb_screen_next(&it), ++number) {
        if (it.data->root == x.root()) break;
    }
    return std::to_string(number);
}

} // namespace

std::optional<std::string> textOfXSettings(std::string_view bytes, std::string_view name) {
    constexpr std::uint32_t numberType = 0;
    constexpr std::uint32_t textType = 1;
    constexpr std::uint32_t colorType = 2;
    Bytes reader(bytes);
    reader.setBigEndian(reader.number(1) == 1);
    reader.take(3); // unused
    reader.take(4); // the serial number of the last change
    for (auto count = reader.number(4); count > 0 && !reader.isOver(); --count) {
        const auto type = reader.number(1);
        reader.take(1); // unused
        const auto settingName = reader.takePadded(reader.number(2));
        reader.take(4); // the serial number of its last change
        if (type == textType) {
            const auto value = reader.takePadded(reader.number(4));
            if (settingName == name && !reader.isOver()) return std::string(value);
        } else if (type == numberType) {
            reader.take(4);
        } else if (type == colorType) {
            reader.take(8);
        } else {
            break;
        }
    }
    return std::nullopt;
}

XSettings::XSettings(XConnection& x, std::function<void()> changed)
    : x_(x)
    , changed_(std::move(changed))
    , selection_("_XSETTINGS_S" + screenNumber(x))
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"MANAGER", selection_, settingsProperty});
    x_.selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY); // A new manager announces itself.
    findManager();
}

void XSettings::findManager() {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        x_.xcb(), xcb_get_selection_owner(x_.xcb(), x_.atom(selection_)), nullptr));
    manager_ = reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
    if (manager_ == XCB_WINDOW_NONE) {
        bytes_.clear();
        return;
    }
    // Before it is read: no change in between is missed.
    constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x_.xcb(), manager_, XCB_CW_EVENT_MASK, &events);
    read();
}

void XSettings::read() {
    bytes_ = XProperty(x_, manager_, settingsProperty).text().value_or("");
}

void XSettings::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_CLIENT_MESSAGE: {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.type != x_.atom("MANAGER") || message.data.data32[1] != x_.atom(selection_)) return;
        findManager();
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window != manager_) return;
        findManager();
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window != manager_ || change.atom != x_.atom(settingsProperty)) return;
        read();
        break;
    }
    default:
        return;
    }
    changed_();
}

} // namespace quorvane
