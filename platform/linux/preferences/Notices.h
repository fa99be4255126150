#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Signal.h"

namespace quorvane {

/// What the preferences window has to tell as long as it is so: one text a topic, in an order that stays. The
/// texts are in the user's language.
class Notices {
public:
    /// An empty text takes the topic's notice away.
    void set(const std::string& topic, std::string text) {
        if (text.empty())
            texts_.erase(topic);
        else
            texts_[topic] = std::move(text);
        changed.emit();
    }

    /// All of them, each on a line of its own.
    std::string text() const {
        std::string all;
        for (const auto& [topic, text] : texts_)
            all += (all.empty() ? "" : "\n") + text;
        return all;
    }

    Signal<> changed;

private:
    std::map<std::string, std::string> texts_;
};

} // namespace quorvane
