#include "virtual-desktop/WaylandTextProgram.h"

#include <stdexcept>

#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XClient.h"

namespace quorvane {
namespace {

const QStringList nativeOnWayland{"LC_ALL=C.UTF-8", "QT_QPA_PLATFORM=wayland", "GDK_BACKEND=wayland",
                                  "XDG_DATA_DIRS=/usr/local/share:/usr/share"}; // GTK's settings

} // namespace

WaylandTextProgram::WaylandTextProgram(WaylandServer& server, Toolkit toolkit, const QString& name)
    : WaylandTextProgram(server, toolkit, name, {toolkit, qEnvironmentVariable("HOME"), name}) {}

WaylandTextProgram::WaylandTextProgram(WaylandServer& server, Toolkit toolkit, const QString& name,
                                       const TextCommand& command)
    : server_(server)
    , toolkit_(toolkit)
    , name_(name)
    , program_("env", nativeOnWayland + QStringList{command.program} + command.arguments) {
    const bool tells = toolkit != Toolkit::gtk;
    if (!activate() || (tells && !waitUntil([this] { return program_.output().contains("shown "); })))
        throw std::runtime_error("no window " + name.toStdString() + program_.errors().toStdString());
}

// Compositors move the focus among windows of X through a connection of its own, which keys may overtake.
bool WaylandTextProgram::activate() {
    if (!server_.activate(name_)) return false;
    if (toolkit_ != Toolkit::xim) return true;
    XClient client;
    return waitUntil([&] {
        const auto names = client.texts(client.focused(), "WM_CLASS");
        return names.size() > 1 && names[1] == name_.toStdString();
    });
}

} // namespace quorvane
