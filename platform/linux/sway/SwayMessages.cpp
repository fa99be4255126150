#include "platform/linux/sway/SwayMessages.h"

#include <cstring>

#include "platform/linux/Log.h"

namespace quorvane {
namespace {

// Each message: these letters, the length of what follows the type, the type; both in the machine's order.
constexpr QByteArrayView magic = "i3-ipc";
constexpr qsizetype headerSize = magic.size() + 2 * qsizetype{sizeof(std::uint32_t)};

/// A tree of hundreds of windows has some hundred kilobytes.
constexpr std::uint32_t longestMessage = 16U << 20U;

std::uint32_t numberAt(const QByteArray& bytes, qsizetype place) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.constData() + place, sizeof(number));
    return number;
}

void appendNumber(QByteArray& bytes, std::uint32_t number) {
    bytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
}

} // namespace

QByteArray swayMessage(SwayRequest type, const QByteArray& payload) {
    auto bytes = magic.toByteArray();
    appendNumber(bytes, static_cast<std::uint32_t>(payload.size()));
    appendNumber(bytes, static_cast<std::uint32_t>(type));
    return bytes + payload;
}

std::optional<SwayMessages::Message> SwayMessages::next() {
    if (isBroken_ || bytes_.size() < headerSize) return std::nullopt;
    const auto length = numberAt(bytes_, magic.size());
    isBroken_ = !bytes_.startsWith(magic) || length > longestMessage;
    const auto size = headerSize + qsizetype{length};
    if (isBroken_ || bytes_.size() < size) return std::nullopt;
    Message message{numberAt(bytes_, magic.size() + qsizetype{sizeof(length)}),
                    QJsonDocument::fromJson(bytes_.sliced(headerSize, length))};
    bytes_.remove(0, size);
    if (message.contents.isNull()) logLine("sway sent a message that is no JSON: it is ignored");
    return message;
}

} // namespace quorvane
