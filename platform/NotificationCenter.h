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

/// Notifications inside the process, delivered before `post` returns. The same on every desktop.
class NotificationCenter {
public:
    /// With a null object, the handler gets the notifications of every object.
    Subscription addObserver(std::string_view name, const Window* object,
                             std::function<void(const Notification&)> handler) {
        return posted_.connect([name = std::string(name), object,
                                handler = std::move(handler)](const Notification& notification) {
            if (notification.name == name && (!object || object == notification.object))
                handler(notification);
        });
    }

    void post(const Notification& notification) { posted_.emit(notification); }

private:
    Signal<const Notification&> posted_;
};

} // namespace quorvane
