#include "platform/linux/x11/XProperties.h"

#include <algorithm>
#include <utility>

#include "platform/linux/x11/CompoundText.h"

namespace quorvane {

namespace {

/// More than any title or window list in real life; a client may hang megabytes on a property of its own.
constexpr std::uint32_t longestProperty = 65536; // 32-bit units

} // namespace

XProperty::XProperty(XConnection& x, xcb_window_t window, std::string_view name)
    : x_(&x)
    , cookie_(xcb_get_property(x.xcb(), 0, window, x.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0,
                               longestProperty)) {}

XProperty::XProperty(XProperty&& other) noexcept
    : x_(other.x_)
    , isUnderWay_(std::exchange(other.isUnderWay_, false))
    , cookie_(other.cookie_)
    , isRefused_(other.isRefused_) {}

XProperty::~XProperty() {
    if (isUnderWay_) xcb_discard_reply(x_->xcb(), cookie_.sequence);
}

/// The reply, if it has that format.
XcbReply<xcb_get_property_reply_t> XProperty::take(std::uint8_t format) {
    if (!std::exchange(isUnderWay_, false)) return nullptr;
    XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(x_->xcb(), cookie_, nullptr));
    isRefused_ = !reply;
    if (reply && reply->format != format) return nullptr;
    return reply;
}

std::vector<std::uint32_t> XProperty::values() {
    const auto reply = take(32);
    if (!reply) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::optional<std::string> XProperty::text() {
    const auto reply = take(8);
    if (!reply) return std::nullopt;
    const std::string_view bytes(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                 reply->value_len);
    if (reply->type == XCB_ATOM_STRING) return fromLatin1(bytes);
    if (reply->type == x_->atom("COMPOUND_TEXT")) return fromCompoundText(bytes);
    return std::string(bytes);
}

std::vector<std::string> XProperty::texts() {
    std::vector<std::string> parts;
    const auto whole = text().value_or("");
    for (auto rest = std::string_view(whole); !rest.empty();) {
        const auto part = rest.substr(0, rest.find('\0'));
        parts.emplace_back(part);
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    }
    return parts;
}

std::string fromLatin1(std::string_view bytes) {
    std::string utf8;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            utf8 += byte;
        } else {
            utf8 += static_cast<char>(0xc0 | (code >> 6));
            utf8 += static_cast<char>(0x80 | (code & 0x3f));
        }
    }
    return utf8;
}

} // namespace quorvane
