#include "platform/linux/sway/SwayTree.h"

#include <QJsonArray>

namespace quorvane {
namespace {

/// Where windows are that the user has put away.
constexpr QLatin1String scratchpad{"__i3_scratch"};

std::string textOf(const QJsonObject& object, QLatin1String key) {
    return object.value(key).toString().toStdString();
}

void read(const QJsonObject& container, bool isHidden, SwayTree& tree) {
    isHidden = isHidden || container.value("name") == scratchpad;
    if (container.value("focused").toBool()) {
        tree.isFocusElsewhere = false;
        if (isSwayWindow(container)) tree.focused = swayWindowId(container);
    }
    if (isSwayWindow(container)) {
        auto window = swayWindow(container);
        window.isHidden = isHidden;
        tree.windows.emplace_back(swayWindowId(container), std::move(window));
    }
    for (const auto* children : {"nodes", "floating_nodes"}) {
        for (const auto& child : container.value(QLatin1String(children)).toArray())
            read(child.toObject(), isHidden, tree);
    }
}

} // namespace

SwayTree swayTree(const QJsonObject& root) {
    SwayTree tree;
    read(root, false, tree);
    return tree;
}

bool isSwayWindow(const QJsonObject& container) {
    return container.contains("pid"); // Containers of containers have none.
}

WindowId swayWindowId(const QJsonObject& container) {
    return static_cast<WindowId>(container.value("id").toInteger());
}

CompositorWindow swayWindow(const QJsonObject& container) {
    CompositorWindow window;
    const auto ofX = container.value("window_properties").toObject();
    window.facts.wmClass = textOf(container, QLatin1String("app_id"));
    if (window.facts.wmClass.empty()) window.facts.wmClass = textOf(ofX, QLatin1String("class"));
    window.facts.wmInstance = textOf(ofX, QLatin1String("instance"));
    window.facts.pid = container.value("pid").toInt();
    window.title = textOf(container, QLatin1String("name"));
    const auto rect = container.value("rect").toObject();
    const auto contents = container.value("window_rect").toObject(); // Inside the border.
    window.bounds = {rect.value("x").toDouble() + contents.value("x").toDouble(),
                     rect.value("y").toDouble() + contents.value("y").toDouble(),
                     contents.value("width").toDouble(), contents.value("height").toDouble()};
    return window;
}

} // namespace quorvane
