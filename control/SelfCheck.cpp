#include "control/SelfCheck.h"

#include <algorithm>
#include <iostream>
#include <utility>

namespace quorvane {
namespace {

/// Long enough for a few events of the user's, and for a desktop whose answers come by a bus.
constexpr int timeToLook = 3; // seconds

constexpr std::size_t widthOfNames = 18;

} // namespace

void printLine(const std::string& line) {
    std::cout << line << std::endl; // which flushes
}

SelfCheck::SelfCheck(Desktop& desktop, Tell tell, OwnFacts ownFacts)
    : desktop_(desktop)
    , tell_([tell = std::move(tell)](std::string_view name, const std::string& fact) {
        std::string line(name);
        line.resize(std::max(widthOfNames, line.size() + 1), ' ');
        tell(line + fact);
    })
    , ownFacts_(std::move(ownFacts))
    , events_(desktop) {}

void SelfCheck::start() {
    tell_("Quorvane", desktop_.application.shortVersion());
    tell_("looking for",
          std::to_string(timeToLook) + " seconds: switch applications, press Shift, click, open a launcher");
    events_.watch();
    desktop_.runLoop.dispatchAfter(timeToLook, [this] { finish(); });
}

void SelfCheck::finish() {
    ownFacts_(tell_);
    askPorts(desktop_, tell_);
    events_.tell(tell_);
    tell_("not asked", "what would be seen or change something: alerts, the open panel, the status item, "
                       "links, other programs");
    desktop_.application.terminate();
}

} // namespace quorvane
