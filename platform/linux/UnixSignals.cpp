#include "platform/linux/UnixSignals.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace quorvane {
namespace {

constexpr std::array<int, 3> terminationSignals = {SIGTERM, SIGINT, SIGHUP};

// What a signal handler may touch: a pipe whose other end the event loop reads.
int readEnd = -1;
int writeEnd = -1;

void passOn(int /*signal*/) {
    const char anything = 0;
    // A full pipe says the same as one more byte in it.
    [[maybe_unused]] const auto written = write(writeEnd, &anything, sizeof anything);
}

void install(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const auto signal : terminationSignals)
        sigaction(signal, &action, nullptr);
}

} // namespace

UnixSignals::UnixSignals(std::function<void()> onTermination) : onTermination_(std::move(onTermination)) {
    // Whoever read what the program writes may have gone, as when the terminal that it was launched from is
    // closed, or the process that launched it anew has ended.
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return; // the signals then end the process as always
    readEnd = ends[0];
    writeEnd = ends[1];
    arrivals_ = std::make_unique<QSocketNotifier>(readEnd, QSocketNotifier::Read);
    QObject::connect(arrivals_.get(), &QSocketNotifier::activated, arrivals_.get(), [this] {
        std::array<char, 16> ignored{};
        while (read(readEnd, ignored.data(), ignored.size()) > 0) {
        }
        onTermination_();
    });
    install(passOn);
}

UnixSignals::~UnixSignals() {
    if (!arrivals_) return;
    install(SIG_DFL);
    arrivals_.reset();
    close(readEnd);
    close(writeEnd);
}

} // namespace quorvane
