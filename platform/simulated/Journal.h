#pragma once

#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/PropertyList.h"

namespace quorvane {

/// A value as a line of the journal has it: strings in quotes, so that "1" is not 1; nothing is "none".
std::string textOf(const PropertyList& value);

/// What a program did to its desktop, in order and with the time: every port adds a short line for each
/// effect.
class Journal {
public:
    /// `now` in seconds.
    explicit Journal(std::function<double()> now = [] { return 0.0; }) : now_(std::move(now)) {}

    /// Adds one effect, made of the parts.
    template <class... Parts>
    void add(const Parts&... parts) {
        if (!isKept_) return;
        std::ostringstream effect;
        (effect << ... << parts);
        write(effect.str());
    }

    /// The effects since it was last taken: one line for each moment at which there were any, the seconds
    /// since then and what happened, "0.1 find ru; select ru".
    std::vector<std::string> take();

    /// From now on, this effect is not worth a line.
    void ignore(std::string effect) { ignored_.insert(std::move(effect)); }

    /// For runs so long that nobody could read it.
    void stop() { isKept_ = false; }

private:
    void write(const std::string& effect);

    std::function<double()> now_;
    double start_ = 0;
    std::string lastMoment_;
    std::vector<std::string> lines_;
    std::set<std::string> ignored_;
    bool isKept_ = true;
};

} // namespace quorvane
