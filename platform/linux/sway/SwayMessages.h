#pragma once

#include <cstdint>
#include <optional>

#include <QByteArray>
#include <QJsonDocument>

namespace quorvane {

/// What is asked of sway, and what it answers in turn.
enum class SwayRequest : std::uint32_t {
    runCommand = 0,
    subscribe = 2,
    getTree = 4,
    getVersion = 7,
    getConfig = 9,
    getBindingState = 12,
    getInputs = 100
};

/// What sway tells unasked, to whom it may concern.
enum class SwayEvent : std::uint32_t {
    workspace = 0x80000000,
    mode = 0x80000002,
    window = 0x80000003,
    binding = 0x80000005,
    input = 0x80000015
};

QByteArray swayMessage(SwayRequest type, const QByteArray& payload);

/// Takes the stream of bytes that sway sends apart, in pieces of any size.
class SwayMessages {
public:
    struct Message {
        std::uint32_t type = 0;
        QJsonDocument contents; ///< Null when it is no JSON; that is logged once.

        bool isEvent() const { return type & 0x80000000U; }
    };

    void append(const QByteArray& bytes) { bytes_ += bytes; }

    /// The next one that has arrived whole.
    std::optional<Message> next();

    /// This is not what sway says: nothing that follows can be understood.
    bool isBroken() const { return isBroken_; }

private:
    QByteArray bytes_;
    bool isBroken_ = false;
};

} // namespace quorvane
