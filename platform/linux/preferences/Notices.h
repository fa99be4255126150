#pragma once

#include <algorithm>
#include <functional>
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
    /// What the user can do about it with one click.
    struct Remedy {
        std::string name;
        std::function<void()> apply;
    };

    /// An empty text takes the topic's notice away.
    void set(const std::string& topic, std::string text, Remedy remedy = {}) {
        if (text.empty())
            notices_.erase(topic);
        else
            notices_[topic] = {std::move(text), std::move(remedy)};
        changed.emit();
    }

    /// All of them, each on a line of its own.
    std::string text() const {
        std::string all;
        for (const auto& [topic, notice] : notices_)
            all += (all.empty() ? "" : "\n") + notice.text;
        return all;
    }

    /// The first one's that has one; without a name when there is none.
    Remedy remedy() const {
        const auto found =
            std::ranges::find_if(notices_, [](const auto& each) { return !each.second.remedy.name.empty(); });
        return found == notices_.end() ? Remedy{} : found->second.remedy;
    }

    Signal<> changed;

private:
    struct Notice {
        std::string text;
        Remedy remedy;
    };

    std::map<std::string, Notice> notices_;
};

} // namespace quorvane
