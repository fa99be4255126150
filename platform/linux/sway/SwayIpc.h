#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>
#include <QTimer>

#include "platform/Signal.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/sway/SwayMessages.h"

namespace quorvane {

/// One connection to sway's own socket: events and answers arrive in the order in which things happened.
/// Nothing waits for sway. A connection that is lost is made again as soon as there is somebody to connect
/// to.
class SwayIpc {
public:
    /// `socketPath` is what SWAYSOCK says.
    explicit SwayIpc(std::string socketPath);
    ~SwayIpc();
    SwayIpc(const SwayIpc&) = delete;
    SwayIpc& operator=(const SwayIpc&) = delete;

    /// Once whoever wants to hear of it listens.
    void open();

    bool isOpen() const { return reading_ != nullptr; }

    using Answered = std::function<void(const QJsonDocument& answer)>;

    /// The answer comes from the event loop, or never: not from a connection that was lost since. Without a
    /// connection nothing is asked.
    void ask(SwayRequest request, const QByteArray& payload = {}, Answered answered = {});

    /// `answered` hears whether sway did it.
    void run(const QByteArray& command, std::function<void(bool isDone)> answered = {});

    Signal<> opened; ///< There is a connection, the first one or another one: ask anew.
    Signal<SwayEvent, const QJsonObject&> happened;

private:
    struct Question {
        std::uint32_t type;
        Answered answered;
    };

    bool connectToSway();
    void read();
    void write();
    void take(const SwayMessages::Message& message);
    void lost();

    std::string path_;
    FileDescriptor socket_;
    std::unique_ptr<QSocketNotifier> reading_; ///< Null while there is no connection.
    std::unique_ptr<QSocketNotifier> writing_;
    QByteArray outgoing_;
    SwayMessages incoming_;
    std::deque<Question> questions_; ///< Sent, in order.
    QTimer retry_;
    std::chrono::milliseconds pause_;
};

} // namespace quorvane
