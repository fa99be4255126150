#include "platform/linux/x11/windows/X11WindowList.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/linux/x11/XProperties.h"

#include "platform/linux/x11/applications/XWindow.h"

namespace quorvane {

namespace {

namespace Layer {
constexpr int popUpMenu = 101;
constexpr int launcher = 27;
constexpr int status = 25;
constexpr int floating = 3;
constexpr int normal = 0;
constexpr int below = -1;
constexpr int desktop = -1000;
} // namespace Layer

constexpr std::array describingProperties = {"_NET_WM_NAME",  "_NET_WM_VISIBLE_NAME", "WM_NAME",
                                             "_NET_WM_STATE", "_NET_WM_WINDOW_TYPE",  "_GTK_FRAME_EXTENTS"};

bool contains(const std::vector<std::uint32_t>& values, xcb_atom_t atom) {
    return std::ranges::find(values, atom) != values.end();
}

} // namespace

/// Under way for one window.
struct X11WindowList::Question {
    Question(XConnection& x, xcb_window_t window, Described& answered)
        : name(x, window, "_NET_WM_NAME")
        , oldName(x, window, "WM_NAME")
        , visibleName(x, window, "_NET_WM_VISIBLE_NAME")
        , state(x, window, "_NET_WM_STATE")
        , type(x, window, "_NET_WM_WINDOW_TYPE")
        , shadow(x, window, "_GTK_FRAME_EXTENTS")
        , described(&answered) {}

    /// None when nobody gives it one; that a program gives it an empty one says that it is no window to work
    /// in.
    std::optional<std::string> title() {
        auto title = name.text();
        if (title && !title->empty()) return title;
        auto oldTitle = oldName.text();
        if (!oldTitle || oldTitle->empty()) return title ? title : oldTitle;
        auto visible = visibleName.text();
        return visible && !visible->empty() ? visible : oldTitle;
    }

    XProperty name;
    XProperty oldName;
    XProperty visibleName; ///< The window manager's UTF-8 copy of a title in an old encoding.
    XProperty state;
    XProperty type;
    XProperty shadow;
    Described* described;
};

X11WindowList::X11WindowList(XConnection& x, X11WindowOwners& owners, const SessionWorkspace& workspace,
                             const X11Screens& screens, LauncherWindows& launchers)
    : x_(x)
    , owners_(owners)
    , screens_(screens)
    , launchers_(launchers)
    , stack_(x, [this](auto windows) { owners_.learn(windows); })
    , frontWindow_(x, workspace, stack_)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"_NET_WM_NAME", "_NET_WM_VISIBLE_NAME", "WM_NAME", "_NET_WM_STATE", "_NET_WM_WINDOW_TYPE",
                    "_GTK_FRAME_EXTENTS", "_NET_WM_STATE_ABOVE", "_NET_WM_STATE_BELOW",
                    "_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP"});
}

std::vector<WindowDescription> X11WindowList::windows() const {
    const auto stack = stack_.windows();
    describe(stack);
    const auto points = screens_.points();
    std::vector<WindowDescription> descriptions;
    descriptions.reserve(stack.size());
    for (const auto& each : stack) {
        const auto* owner = owners_.ownerOf(each.window);
        if (!owner || (owner->isThisProcess && each.isPopUp)) continue;
        const auto& described = described_.at(each.window);
        WindowDescription description;
        description.ownerName = owner->name;
        description.name = described.title;
        description.bounds = points.fromTopLeft(withoutShadow(each.bounds, described.shadow));
        description.layer = described.layer;
        if (each.isPopUp) description.layer = Layer::popUpMenu;
        if (launchers_.isOpen(each.window)) description.layer = Layer::launcher;
        description.isOnScreen = each.isVisible;
        descriptions.push_back(std::move(description));
    }
    return descriptions;
}

void X11WindowList::describe(const std::vector<StackedWindow>& stack) const {
    std::vector<xcb_window_t> numbers;
    numbers.reserve(stack.size());
    for (const auto& each : stack)
        numbers.push_back(each.window);
    owners_.learn(numbers); // Their property events come from now on.

    std::vector<Question> questions;
    for (const auto window : numbers) {
        if (auto& described = described_[window]; described.isStale)
            questions.emplace_back(x_, window, described);
    }
    for (auto& question : questions) {
        *question.described = {.title = question.title(),
                               .shadow = question.shadow.values(),
                               .layer = layerOf(question.state.values(), question.type.values()),
                               .isStale = false,
                               .askedAt = question.name.sequence()};
    }
}

int X11WindowList::layerOf(const std::vector<std::uint32_t>& states,
                           const std::vector<std::uint32_t>& types) const {
    if (contains(types, x_.atom("_NET_WM_WINDOW_TYPE_DESKTOP"))) return Layer::desktop;
    if (contains(types, x_.atom("_NET_WM_WINDOW_TYPE_DOCK"))) return Layer::status;
    if (contains(states, x_.atom("_NET_WM_STATE_BELOW"))) return Layer::below;
    const bool isNormal = types.empty() || contains(types, x_.atom("_NET_WM_WINDOW_TYPE_NORMAL"));
    const bool isAbove = contains(states, x_.atom("_NET_WM_STATE_ABOVE"));
    return isAbove && !isNormal ? Layer::floating : Layer::normal;
}

Subscription
X11WindowList::addLauncherObserver(std::function<void(const std::optional<OpenLauncher>& open)> handler) {
    return launchers_.onChange([this, handler = std::move(handler)] { handler(openLauncher()); });
}

std::optional<OpenLauncher> X11WindowList::openLauncher() const {
    const auto* launcher = launchers_.openLauncher();
    if (!launcher) return std::nullopt;
    const auto window = xWindow(launchers_.openWindow());
    XProperty shadow(x_, window, "_GTK_FRAME_EXTENTS");
    const auto bounds = withoutShadow(stackedWindow(x_, window).bounds, shadow.values());
    return OpenLauncher{std::string(launcher->desktopId), screens_.points().fromTopLeft(bounds)};
}

void X11WindowList::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_DESTROY_NOTIFY:
        // The server gives the number to a new window soon.
        described_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const auto described = described_.find(change.window);
        if (described == described_.end()) break;
        const bool isOld = static_cast<std::int32_t>(event.full_sequence - described->second.askedAt) < 0;
        const bool isDescribing = std::ranges::any_of(
            describingProperties, [&](const char* name) { return x_.atom(name) == change.atom; });
        if (isDescribing && !isOld) described->second.isStale = true;
        break;
    }
    default:
        break;
    }
}

} // namespace quorvane
