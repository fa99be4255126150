#include "platform/linux/demo/Stage.h"

#include <cstdio>
#include <stdexcept>
#include <thread>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr auto titleOfTable = "What the compositor and the programs report";
constexpr auto backgroundColor = "#3b5368";
constexpr auto timeToDraw = 1s;

/// As near as it gets: there are titles, and terminals are as large as whole letters.
bool isNear(const QPoint& one, const QPoint& other) {
    constexpr int near = 40;
    return (one - other).manhattanLength() < near;
}

} // namespace

const std::vector<std::string> Stage::sources{"xkb:us", "xkb:ru", "xkb:de"};

Stage::Stage(const std::string& compositor) : session_(compositor) {
    if (!session_.server) throw std::runtime_error("no such compositor: " + compositor);
    qputenv("XDG_DATA_DIRS", "/usr/local/share:/usr/share"); // The desktop files of real programs.
    session_.folders.write(".Xdefaults", "*faceName: DejaVu Sans Mono\n*faceSize: 12\n");
    session_.folders.write("config/foot/foot.ini", "font=DejaVu Sans Mono:size=12\n");
    auto& standard = session_.stores.standardUserDefaults();
    standard.setBool(true, key::enableTipOfState);
    standard.setBool(true, key::followWindow);
    standard.synchronize();
    session_.startProgram();

    if (isSway()) SwayServer::run("for_window [title=.*] floating enable"); // Else they are laid out first.
    paintBackground();
    session_.folders.write("table", {});
    table_.emplace("xterm", QStringList{"-u8", "-class", "Table", "-T", titleOfTable, "-e", "tail", "-n",
                                        "+1", "-f", tablePath()});
    place(titleOfTable, {30, 60, 660, 400});
}

void Stage::endProgram() {
    session_.program->terminate();
    if (!session_.program->waitForEnd() || session_.program->exitCode() != 0)
        throw std::runtime_error("Quorvane did not end cleanly");
}

// GNOME Shell and sway have a background of their own; what sway's is made with works on KWin, too.
void Stage::paintBackground() {
    if (gnome()) {
        constexpr auto schema = "org.gnome.desktop.background";
        GnomeServer::set(schema, "picture-options", "none");
        GnomeServer::set(schema, "primary-color", backgroundColor);
    } else {
        background_.emplace("swaybg", QStringList{"--color", backgroundColor});
    }
}

void Stage::print(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
    QFile table(tablePath());
    table.open(QFile::Append);
    table.write((line + "\n").c_str());
}

void Stage::addHotKey(const QString& inputSource, const QString& keys) {
    QProcess tool; // It says what it has set.
    tool.start(QCoreApplication::applicationDirPath() + "/quorvanectl", {"shortcut", inputSource, keys});
    if (!tool.waitForFinished() || tool.exitCode() != 0)
        throw std::runtime_error("no hot key " + keys.toStdString());
}

void Stage::savePicture(const QString& name) {
    std::this_thread::sleep_for(timeToDraw);
    server().saveScreenshot(qEnvironmentVariable("QUORVANE_PICTURES", ".") + "/" + name);
    std::printf("screenshot: %s\n", qPrintable(name));
}

void Stage::place(const QString& window, const QRect& place) {
    if (!server().activate(window)) throw std::runtime_error("no window " + window.toStdString());
    const bool isThere = waitUntil([&] {
        server().move(window, place);
        const auto now = server().place(window);
        return isNear(now.topLeft(), place.topLeft()) && isNear(now.bottomRight(), place.bottomRight());
    });
    if (!isThere) throw std::runtime_error("cannot be moved: " + window.toStdString());
}

bool Stage::waitForSource(const std::string& source) {
    return waitUntil([&] { return this->source() == source; });
}

} // namespace quorvane
