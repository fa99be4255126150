#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "control/PortQuestions.h"
#include "platform/Desktop.h"

namespace quorvane {

/// What a desktop tells by itself while somebody looks: how often, not what. And whether it carries messages
/// and grants a hot key, which some desktops answer later.
class SeenEvents {
public:
    /// The desktop must outlive it.
    explicit SeenEvents(Desktop& desktop) : desktop_(desktop) {}
    SeenEvents(const SeenEvents&) = delete;
    SeenEvents& operator=(const SeenEvents&) = delete;

    void watch();

    /// What came since then. Nothing is watched or held any more.
    void tell(const TellFact& tell);

private:
    void watchApplications();
    void watchMessages();
    void watchHand();
    int& counterOf(const char* event) { return counts_.emplace_back(event, 0).second; }
    bool isHotKeyGranted();

    Desktop& desktop_;
    std::deque<std::pair<const char*, int>> counts_; ///< Stay where they are.
    int ownMessages_ = 0;
    bool hasKeyboardChanged_ = false;
    std::optional<Subscription> hotKey_;
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
