#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Signal.h"

namespace quorvane {

class Window;

struct Notification {
    std::string name;
    Window* object = nullptr;
};

inline constexpr std::string_view windowWillCloseNotification = "NSWindowWillCloseNotification";

/// Notifications inside the process, delivered before `post` returns: first to who observes that object, then
/// to who observes every one, and may end the process. The same on every desktop.
class NotificationCenter {
public:
    /// With a null object, the handler gets the notifications of every object.
    Subscription addObserver(std::string_view name, const Window* object,
                             std::function<void(const Notification&)> handler) {
        auto& posted = object ? postedByOne_ : postedByAny_;
        return posted.connect([name = std::string(name), object,
                               handler = std::move(handler)](const Notification& notification) {
            if (notification.name == name && (!object || object == notification.object))
                handler(notification);
        });
    }

    void post(const Notification& notification) {
        postedByOne_.emit(notification);
        postedByAny_.emit(notification);
    }

private:
    Signal<const Notification&> postedByOne_;
    Signal<const Notification&> postedByAny_;
};

} // namespace quorvane
