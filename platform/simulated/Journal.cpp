#include "platform/simulated/Journal.h"

#include <cmath>
#include <utility>

namespace quorvane {
namespace {

std::string secondsText(double seconds) {
    constexpr double microseconds = 1e6;
    std::ostringstream text;
    text << std::round(seconds * microseconds) / microseconds;
    return text.str();
}

} // namespace

std::string textOf(const PropertyList& value) {
    std::ostringstream text;
    const char* separator = "";
    if (const auto* boolean = value.boolean()) {
        text << (*boolean ? "true" : "false");
    } else if (const auto* integer = value.integer()) {
        text << *integer;
    } else if (const auto* real = value.real()) {
        text << *real;
    } else if (const auto* string = value.string()) {
        text << '\'' << *string << '\'';
    } else if (const auto* array = value.array()) {
        text << '[';
        for (const auto& element : *array)
            text << std::exchange(separator, ", ") << textOf(element);
        text << ']';
    } else if (const auto* dictionary = value.dictionary()) {
        text << '{';
        for (const auto& [key, element] : *dictionary)
            text << std::exchange(separator, ", ") << key << ": " << textOf(element);
        text << '}';
    } else {
        text << (value.isNothing() ? "none" : "bytes or a date");
    }
    return text.str();
}

void Journal::write(const std::string& effect) {
    if (ignored_.contains(effect)) return;
    const auto moment = secondsText(now_() - start_);
    if (!lines_.empty() && moment == lastMoment_)
        lines_.back() += "; " + effect;
    else
        lines_.push_back(moment + " " + effect);
    lastMoment_ = moment;
}

std::vector<std::string> Journal::take() {
    start_ = now_();
    return std::exchange(lines_, {});
}

} // namespace quorvane
