#include "platform/linux/session/ToolkitScreens.h"

#include <QGuiApplication>
#include <QScreen>

namespace quorvane {
namespace {

Rect rectOf(const QRect& rect) {
    return {double(rect.x()), double(rect.y()), double(rect.width()), double(rect.height())};
}

/// From the top-left of all screens to the bottom-left of the primary one.
Rect fromPrimary(const QRect& rect, const QRect& primary) {
    auto result = rectOf(rect.translated(-primary.topLeft()));
    result.y = primary.height() - (result.y + result.height);
    return result;
}

} // namespace

std::optional<Screen> ToolkitScreens::mainScreen() const {
    const auto* primary = QGuiApplication::primaryScreen();
    if (!primary) return std::nullopt;
    const auto* main = primary;
    if (const auto* front = windows_.front()) {
        const auto& bounds = front->bounds;
        const QPointF centre(bounds.x + bounds.width / 2, bounds.y + bounds.height / 2);
        if (const auto* screen = QGuiApplication::screenAt(centre.toPoint())) main = screen;
    }
    return Screen{numberOf(main->name()), fromPrimary(main->geometry(), primary->geometry()), main->depth()};
}

std::optional<Screen> ToolkitScreens::deepestScreen() const {
    const auto* primary = QGuiApplication::primaryScreen();
    if (!primary) return std::nullopt;
    return Screen{numberOf(primary->name()), fromPrimary(primary->geometry(), primary->geometry()),
                  primary->depth()};
}

std::int32_t ToolkitScreens::numberOf(const QString& name) const {
    return numbers_.try_emplace(name, std::int32_t(numbers_.size() + 1)).first->second;
}

} // namespace quorvane
