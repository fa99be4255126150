#include "platform/linux/windows/X11WindowList.h"

#include <algorithm>

#include "platform/linux/x11/XProperties.h"

namespace quorvane {

namespace {

namespace Layer {
constexpr int popUpMenu = 101;
constexpr int launcher = 27;
constexpr int status = 25;
constexpr int floating = 3;
constexpr int below = -1;
constexpr int desktop = -1000;
} // namespace Layer

/// What the window manager and the program say about one window, under way.
struct Question {
    Question(XConnection& x, xcb_window_t window)
        : name(x, window, "_NET_WM_NAME")
        , visibleName(x, window, "_NET_WM_VISIBLE_NAME")
        , oldName(x, window, "WM_NAME")
        , state(x, window, "_NET_WM_STATE")
        , type(x, window, "_NET_WM_WINDOW_TYPE")
        , shadow(x, window, "_GTK_FRAME_EXTENTS") {}

    std::optional<std::string> title() {
        for (auto* property : {&name, &visibleName, &oldName}) {
            if (auto text = property->text(); text && !text->empty()) return text;
        }
        return std::nullopt;
    }

    XProperty name;
    XProperty visibleName; ///< The window manager's UTF-8 copy of a title in an old encoding.
    XProperty oldName;
    XProperty state;
    XProperty type;
    XProperty shadow;
};

} // namespace

X11WindowList::X11WindowList(XConnection& x, ApplicationIdentities& identities, const X11Screens& screens,
                             X11Launchers& launchers)
    : x_(x)
    , identities_(identities)
    , screens_(screens)
    , launchers_(launchers) {
    x_.internAtoms({"_NET_CLIENT_LIST", "_NET_WM_NAME", "_NET_WM_VISIBLE_NAME", "WM_NAME", "_NET_WM_STATE",
                    "_NET_WM_WINDOW_TYPE", "_GTK_FRAME_EXTENTS", "_NET_WM_STATE_ABOVE", "_NET_WM_STATE_BELOW",
                    "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP"});
}

std::vector<WindowDescription> X11WindowList::windows() const {
    const auto stack = stackedWindows(x_);
    std::vector<xcb_window_t> numbers;
    std::vector<Question> questions;
    questions.reserve(stack.size());
    for (const auto& each : stack) {
        numbers.push_back(each.window);
        questions.emplace_back(x_, each.window);
    }
    identities_.learn(numbers);

    const auto points = screens_.points();
    std::vector<WindowDescription> descriptions;
    for (std::size_t i = 0; i < stack.size(); ++i) {
        auto& question = questions[i];
        const auto* owner = identities_.ownerOf(stack[i].window);
        if (!owner || (owner->isThisProcess && stack[i].isPopUp)) continue;
        WindowDescription description;
        description.ownerName = owner->name;
        description.name = question.title();
        description.bounds = points.fromTopLeft(withoutShadow(stack[i].bounds, question.shadow.values()));
        description.layer = layerOf(stack[i], question.state.values(), question.type.values());
        description.isOnScreen = stack[i].isVisible;
        descriptions.push_back(std::move(description));
    }
    return descriptions;
}

Subscription
X11WindowList::addLauncherObserver(std::function<void(const std::optional<OpenLauncher>& open)> handler) {
    return launchers_.onChange([this, handler = std::move(handler)] { handler(openLauncher()); });
}

std::optional<OpenLauncher> X11WindowList::openLauncher() const {
    const auto* launcher = launchers_.openLauncher();
    if (!launcher) return std::nullopt;
    XProperty shadow(x_, launchers_.openWindow(), "_GTK_FRAME_EXTENTS");
    const auto bounds = withoutShadow(stackedWindow(x_, launchers_.openWindow()).bounds, shadow.values());
    return OpenLauncher{std::string(launcher->desktopId), screens_.points().fromTopLeft(bounds)};
}

int X11WindowList::layerOf(const StackedWindow& window, std::vector<std::uint32_t> states,
                           const std::vector<std::uint32_t>& types) const {
    if (launchers_.isOpen(window.window)) return Layer::launcher;
    if (window.isPopUp) return Layer::popUpMenu;
    states.insert(states.end(), types.begin(), types.end());
    const auto has = [&](const char* atom) {
        return std::ranges::find(states, x_.atom(atom)) != states.end();
    };
    if (has("_NET_WM_WINDOW_TYPE_DESKTOP")) return Layer::desktop;
    if (has("_NET_WM_WINDOW_TYPE_DOCK")) return Layer::status;
    if (has("_NET_WM_STATE_ABOVE")) return Layer::floating;
    if (has("_NET_WM_STATE_BELOW")) return Layer::below;
    return 0;
}

} // namespace quorvane
