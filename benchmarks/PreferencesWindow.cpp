// How long the preferences window takes to be seen, and to scroll. Usage: [rules] [openings]

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QApplication>
#include <QPixmapCache>
#include <QScrollBar>
#include <QTableView>

#include "input/CompanionLink.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/qt/LettersIcon.h"
#include "platform/linux/x11/X11Session.h"
#include "preferences/AppPrefsWindowController.h"
#include "settings/AppRule.h"
#include "settings/Maker.h"
#include "shortcuts/PTHotKeyCenter.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XServer.h"

namespace {

using namespace quorvane;
using Clock = std::chrono::steady_clock;

constexpr auto isOnDesktop = "QUORVANE_MEASURES_ON_DESKTOP";

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Notes when the widget has been painted for the first time.
class FirstPaint : public QObject {
public:
    bool isDone() const { return isDone_; }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        isDone_ = isDone_ || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool isDone_ = false;
};

void install(const ScratchFolders& folders, int rules) {
    LinuxUserDefaults stores(LinuxUserDefaults::configFolder(), maker::bundleIdentifier);
    for (int rule = 0; rule < rules; ++rule) {
        const auto name = QString("application-%1").arg(rule, 4, 10, QChar('0'));
        folders.write(
            "data/applications/" + name + ".desktop",
            QString("[Desktop Entry]\nType=Application\nName=%1\nExec=%1\nIcon=%1\n").arg(name).toUtf8());
        folders.write("data/icons/hicolor/48x48/apps/" + name + ".png", "not read before it is wanted");
        setRuleInput(stores.standardUserDefaults(), name.toStdString(), "xkb:ru");
    }
    stores.standardUserDefaults().synchronize();
}

void print(const char* what, std::vector<double> times) {
    const double first = times.front();
    std::ranges::sort(times);
    std::printf("%s: first %.1f, median %.1f, longest %.1f ms (%zu times)\n", what, first,
                times[times.size() / 2], times.back(), times.size());
}

/// Of a whole screenful at a time.
std::vector<double> scroll(QTableView& table) {
    std::vector<double> times;
    auto* bar = table.verticalScrollBar();
    for (int place = 0; place < bar->maximum(); place += bar->pageStep()) {
        const auto start = Clock::now();
        bar->setValue(place);
        table.viewport()->repaint();
        times.push_back(millisecondsSince(start));
        QCoreApplication::processEvents();
    }
    return times;
}

void measure(int openings) {
    const auto x = XConnection::open();
    LinuxDesktop linuxDesktop([&](SessionApplications& applications) {
        return std::make_unique<X11Session>(*x, applications, drawLettersIcon);
    });
    auto& desktop = linuxDesktop.desktop();
    const CompanionLink companion(desktop.workspace, desktop.defaults, desktop.distributedNotifications);
    PTHotKeyCenter hotKeys(desktop.hotKeys);
    std::vector<double> times;
    for (int opening = 0; opening < openings; ++opening) {
        const auto start = Clock::now();
        AppPrefsWindowController controller(
            desktop, companion, hotKeys, desktop.interfaceFiles.loadPreferences(), [](std::string_view) {});
        auto* window = QApplication::topLevelWidgets().constFirst();
        for (auto* each : QApplication::topLevelWidgets())
            if (!each->windowTitle().isEmpty()) window = each;
        auto* table = window->findChild<QTableView*>("autoInputByApplicationTableView");
        FirstPaint painted;
        table->viewport()->installEventFilter(&painted);
        controller.window().makeKeyAndOrderFront();
        if (!waitUntil([&] { return painted.isDone(); })) qFatal("the window is not painted");
        times.push_back(millisecondsSince(start));
        if (opening + 1 == openings) print("scrolling by a screenful", scroll(*table));
    }
    print("request to first paint", times);
}

/// Makes a desktop and runs this program again on it: Qt must find the display when it starts.
int runOnDesktop(int argc, char** argv, int rules) {
    const QCoreApplication qt(argc, argv);
    const ScratchFolders folders;
    const XServer server("us,ru");
    const WindowManager manager("openbox");
    const SessionBus bus;
    install(folders, rules);
    qputenv(isOnDesktop, "1");
    qputenv("QT_QPA_PLATFORM", "xcb");
    return QProcess::execute(QCoreApplication::applicationFilePath(), qt.arguments().mid(1));
}

} // namespace

int main(int argc, char** argv) {
    const int rules = argc > 1 ? std::atoi(argv[1]) : 200;
    const int openings = argc > 2 ? std::atoi(argv[2]) : 11;
    if (!qEnvironmentVariableIsSet(isOnDesktop)) return runOnDesktop(argc, argv, rules);
    const QApplication qt(argc, argv);
    QPixmapCache::setCacheLimit(0);
    measure(std::max(openings, 1));
}
