#include "virtual-desktop/WaylandWindow.h"

#include <stdexcept>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

WaylandWindow::WaylandWindow(const QString& title, const QString& applicationId)
    : program_(QUORVANE_WAYLAND_WINDOW, {title, applicationId.isEmpty() ? title : applicationId}) {
    if (!waitUntil([this] { return program_.output().contains("enter"); }))
        throw std::runtime_error("no window " + title.toStdString());
}

std::vector<WaylandWindow::Event> WaylandWindow::events() {
    std::vector<Event> events;
    const auto output = program_.output();
    for (const auto& line : output.first(output.lastIndexOf('\n') + 1).split('\n', Qt::SkipEmptyParts))
        events.push_back({line.section(' ', 0, 0).toLongLong(), line.section(' ', 1)});
    return events;
}

QString WaylandWindow::typed() {
    QString text;
    for (const auto& event : events()) {
        if (event.what.startsWith("text ")) text += event.what.section(' ', 1);
    }
    return text;
}

QString WaylandWindow::activationToken() {
    QString token;
    for (const auto& event : events()) {
        if (event.what.startsWith("token ")) token = event.what.section(' ', 1);
    }
    return token;
}

std::optional<unsigned> WaylandWindow::group() {
    std::optional<unsigned> group;
    for (const auto& event : events()) {
        if (event.what == "enter" || event.what == "leave") group.reset();
        if (event.what.startsWith("group ")) group = event.what.section(' ', 1).toUInt();
    }
    return group;
}

} // namespace quorvane
