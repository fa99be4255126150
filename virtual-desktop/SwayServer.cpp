#include "virtual-desktop/SwayServer.h"

#include <stdexcept>

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include "virtual-desktop/SwayConnection.h"

namespace quorvane {
namespace {

constexpr auto layouts = "us,ru,de";

QStringList namesOf(const QJsonObject& window) {
    const auto applicationId = window["app_id"].toString(); // Windows of X have a class instead.
    return {window["name"].toString(),
            applicationId.isEmpty() ? window["window_properties"]["class"].toString() : applicationId};
}

/// The first window, in a tree, of which that is so.
template <class Condition>
QJsonObject find(const QJsonObject& node, const Condition& isWanted) {
    if (node.contains("pid") && isWanted(node)) return node;
    for (const auto* children : {"nodes", "floating_nodes"}) {
        for (const auto& child : node[children].toArray()) {
            if (auto found = find(child.toObject(), isWanted); !found.isEmpty()) return found;
        }
    }
    return {};
}

QJsonObject windowNamed(const QString& name) {
    return find(sway::ask(sway::Question::tree).object(),
                [&](const QJsonObject& window) { return namesOf(window).contains(name); });
}

} // namespace

SwayServer::SwayServer(const QByteArray& configuration) : WaylandServer("sway") {
    QFile file(path("config"));
    file.open(QFile::WriteOnly);
    file.write("input * xkb_layout " + QByteArray(layouts) +
               "\ninput * repeat_rate 0\ndefault_border none\nxwayland enable\n" + configuration + "\n");
    qputenv("SWAYSOCK", path("socket").toUtf8());
    SwayServer::launch();
}

SwayServer::~SwayServer() {
    keyboard_.reset();
    end();
    qunsetenv("SWAYSOCK");
}

// It runs programs when it is ready.
void SwayServer::launch() {
    keyboard_.reset();
    QFile::remove(path("socket"));
    QFile starting(path("start"));
    starting.open(QFile::WriteOnly);
    starting.write(("include " + path("config") + "\nexec " + writeTeller() + "\n").toUtf8());
    starting.close();
    start("sway", {"-c", path("start")},
          {"WLR_BACKENDS=headless", "WLR_LIBINPUT_NO_DEVICES=1", "WLR_RENDERER=pixman"},
          [this] { return hasToldDisplays(); });
    keyboard_.emplace(layouts, [this] { return layout(); });
}

void SwayServer::run(const QString& command) {
    sway::ask(sway::Question::command, command);
}

void SwayServer::reload() {
    run("reload");
}

QStringList SwayServer::namesInFront() {
    const auto window = find(sway::ask(sway::Question::tree).object(),
                             [](const QJsonObject& each) { return each["focused"].toBool(); });
    return window.isEmpty() ? QStringList() : namesOf(window);
}

void SwayServer::ask(const QString& windowToActivate) {
    const auto window = windowNamed(windowToActivate);
    if (!window.isEmpty()) run(QString("[con_id=%1] focus").arg(window["id"].toInteger()));
}

QRect SwayServer::place(const QString& window) {
    const auto rect = windowNamed(window)["rect"].toObject();
    return {rect["x"].toInt(), rect["y"].toInt(), rect["width"].toInt(), rect["height"].toInt()};
}

void SwayServer::move(const QString& window, const QRect& place) {
    run(QString("[con_id=%1] floating enable, resize set %2 px %3 px, move absolute position %4 px %5 px")
            .arg(windowNamed(window)["id"].toInteger())
            .arg(place.width())
            .arg(place.height())
            .arg(place.x())
            .arg(place.y()));
}

unsigned SwayServer::layout() {
    for (const auto& input : sway::ask(sway::Question::inputs).array()) {
        if (input.toObject()["type"] == "keyboard")
            return static_cast<unsigned>(input.toObject()["xkb_active_layout_index"].toInt());
    }
    throw std::runtime_error("sway has no keyboard");
}

void SwayServer::selectLayout(unsigned layout) {
    run("input type:keyboard xkb_switch_layout " + QString::number(layout));
}

void SwayServer::saveScreenshot(const QString& path) {
    if (QProcess::execute("grim", {path}) != 0) throw std::runtime_error("grim fails");
}

} // namespace quorvane
