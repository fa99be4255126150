#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quorvane {

/// Hears what others tell each other on the session bus, as far as match rules go. The bus sends a copy
/// of such messages and of no others. It allows that to programs of the user whom it serves.
class BusMonitor {
public:
    struct Message {                     ///< A signal or a call.
        std::string sender, destination; ///< Connections of the bus; the destination may be empty.
        std::string path;
        std::string member;             ///< The signal's or the method's name.
        std::vector<std::string> texts; ///< Those of its arguments that are texts.
    };
    using Heard = std::function<void(const Message&)>;

    /// `heard` is called from the event loop of this thread, in the order in which the bus carried the
    /// messages, from a moment after this is made. Without a bus, or when that refuses, it never is; a
    /// refusal is logged.
    BusMonitor(std::vector<std::string> matchRules, Heard heard);
    ~BusMonitor();
    BusMonitor(const BusMonitor&) = delete;
    BusMonitor& operator=(const BusMonitor&) = delete;

    /// Whether everything that matches is heard from now on.
    bool isHearing() const;

private:
    class Ear;
    std::shared_ptr<Ear> ear_;
};

} // namespace quorvane
