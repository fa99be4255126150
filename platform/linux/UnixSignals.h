#pragma once

#include <functional>
#include <memory>

#include <QSocketNotifier>

namespace quorvane {

/// SIGTERM, SIGINT and SIGHUP as a call from the event loop, so that the program ends the normal way;
/// a broken pipe does not end it. One object a process.
class UnixSignals {
public:
    explicit UnixSignals(std::function<void()> onTermination);
    ~UnixSignals();
    UnixSignals(const UnixSignals&) = delete;
    UnixSignals& operator=(const UnixSignals&) = delete;

private:
    std::function<void()> onTermination_;
    std::unique_ptr<QSocketNotifier> arrivals_;
};

} // namespace quorvane
