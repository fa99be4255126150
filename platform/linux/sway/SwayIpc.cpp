#include "platform/linux/sway/SwayIpc.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <QJsonArray>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "platform/linux/Log.h"

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds shortestPause{250};
constexpr std::chrono::milliseconds longestPause{30'000};

/// How long the end may take for sway to hear what it was told last.
constexpr int longestEnd = 100; // milliseconds

constexpr auto events = R"(["workspace","mode","window","binding","input"])";

bool isLater(int error) {
    return error == EAGAIN || error == EINTR;
}

} // namespace

SwayIpc::SwayIpc(std::string socketPath) : path_(std::move(socketPath)), pause_(shortestPause) {
    retry_.setSingleShot(true);
    QObject::connect(&retry_, &QTimer::timeout, &retry_, [this] { open(); });
}

/// sway drops what a client that has gone has asked for, so that the last answers are waited for: a moment,
/// and not when sway hangs.
SwayIpc::~SwayIpc() {
    if (!isOpen()) return;
    for (auto& question : questions_)
        question.answered = {};
    while (isOpen() && !questions_.empty()) {
        write();
        pollfd answers{socket_.number(), POLLIN, 0};
        if (poll(&answers, 1, longestEnd) <= 0) return;
        read();
    }
}

void SwayIpc::open() {
    if (!connectToSway()) {
        retry_.start(pause_);
        pause_ = std::min(2 * pause_, longestPause);
        return;
    }
    pause_ = shortestPause;
    reading_ = std::make_unique<QSocketNotifier>(socket_.number(), QSocketNotifier::Read);
    QObject::connect(reading_.get(), &QSocketNotifier::activated, &retry_, [this] { read(); });
    writing_ = std::make_unique<QSocketNotifier>(socket_.number(), QSocketNotifier::Write);
    writing_->setEnabled(false);
    QObject::connect(writing_.get(), &QSocketNotifier::activated, &retry_, [this] { write(); });
    ask(SwayRequest::subscribe, events);
    opened.emit();
}

bool SwayIpc::connectToSway() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path_.size() >= sizeof(address.sun_path)) return false;
    std::memcpy(address.sun_path, path_.data(), path_.size());
    socket_ = FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    return socket_.isOpen() &&
           connect(socket_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

void SwayIpc::ask(SwayRequest request, const QByteArray& payload, Answered answered) {
    if (!isOpen()) return;
    outgoing_ += swayMessage(request, payload);
    questions_.push_back({static_cast<std::uint32_t>(request), std::move(answered)});
    write(); // Now, not when the loop comes round: the user may be typing already.
}

void SwayIpc::run(const QByteArray& command, std::function<void(bool isDone)> answered) {
    ask(SwayRequest::runCommand, command, [answered = std::move(answered)](const QJsonDocument& answer) {
        const auto results = answer.array();
        const bool isDone =
            !results.isEmpty() && std::all_of(results.begin(), results.end(), [](const auto& result) {
                return result.toObject().value("success").toBool();
            });
        if (answered) answered(isDone);
    });
}

void SwayIpc::write() {
    while (!outgoing_.isEmpty()) {
        const auto count =
            send(socket_.number(), outgoing_.constData(), std::size_t(outgoing_.size()), MSG_NOSIGNAL);
        if (count < 0) break; // One that has gone is noticed by reading.
        outgoing_.remove(0, count);
    }
    writing_->setEnabled(!outgoing_.isEmpty() && isLater(errno));
}

void SwayIpc::read() {
    std::array<char, 65536> bytes; // NOLINT(cppcoreguidelines-pro-type-member-init)
    const auto count = recv(socket_.number(), bytes.data(), bytes.size(), 0);
    if (count < 0 && isLater(errno)) return;
    if (count > 0) incoming_.append(QByteArray(bytes.data(), count));
    while (auto message = incoming_.next())
        take(*message);
    if (count <= 0 || incoming_.isBroken()) lost();
}

void SwayIpc::take(const SwayMessages::Message& message) {
    if (message.isEvent()) {
        if (!message.contents.isNull()) happened.emit(SwayEvent{message.type}, message.contents.object());
        return;
    }
    if (questions_.empty() || questions_.front().type != message.type) return; // Nobody has asked for it.
    const auto question = std::move(questions_.front());
    questions_.pop_front();
    if (question.answered && !message.contents.isNull()) question.answered(message.contents);
}

void SwayIpc::lost() {
    logEvent("the connection to sway is lost: it is made again when sway is back");
    // One of them is what tells this at the moment.
    for (auto* notifier : {reading_.release(), writing_.release()}) {
        notifier->setEnabled(false);
        notifier->deleteLater();
    }
    socket_ = {};
    outgoing_.clear();
    incoming_ = {};
    questions_.clear();
    retry_.start(pause_);
}

} // namespace quorvane
