// How long an input method daemon's source takes to follow the focus, what programs that were just launched
// get of what is typed at once, and what idling costs. Usage: ibus|fcitx [switches] [launches] [idle seconds]

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <QCoreApplication>
#include <QElapsedTimer>

#include "benchmarks/IBusAlone.h"
#include "benchmarks/Percentiles.h"
#include "benchmarks/ProcessFigures.h"
#include "virtual-desktop/InputMethodSession.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XWatcher.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;
using Session = InputMethodSession;
using Clock = XWatcher::Clock;

const char* nameOf(TextProgram::Toolkit toolkit) {
    using enum TextCommand::Toolkit;
    return toolkit == qt ? "Qt" : toolkit == gtk ? "GTK" : "XIM";
}

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

void pauseForAWhile() {
    static std::mt19937 random{std::random_device{}()};
    std::this_thread::sleep_for(std::chrono::milliseconds(std::uniform_int_distribution(150, 300)(random)));
}

/// When the window got the focus that it is given now.
Clock::time_point focus(XWatcher& watcher, xcb_window_t window) {
    watcher.activate(window);
    const auto deadline = Clock::now() + 5s;
    while (const auto seen = watcher.nextSeen(deadline)) {
        if (seen->what == XWatcher::Seen::What::focusIn && seen->window == window) return seen->time;
    }
    return Clock::now();
}

void measureSwitches(Session& session, int count) {
    constexpr Session::Source sources[] = {Session::us, Session::pinyin};
    TextProgram latin(session, TextProgram::Toolkit::qt,
                      Session::wmClass(TextProgram::Toolkit::qt, sources[0]));
    TextProgram chinese(session, TextProgram::Toolkit::qt,
                        Session::wmClass(TextProgram::Toolkit::qt, sources[1]));
    const xcb_window_t windows[] = {latin.window(), chinese.window()};
    XWatcher watcher;
    for (const auto window : windows)
        watcher.watch(window);
    std::vector<double> times;
    int missed = 0;
    constexpr int firstUses = 4; // of what the daemon loads then
    for (int i = 0; i < count + firstUses; ++i) {
        pauseForAWhile();
        const auto focused = focus(watcher, windows[i % 2]);
        const auto source = sources[i % 2];
        while (!session.isSelected(source) && Clock::now() < focused + 2s) {
        }
        if (i < firstUses) continue;
        if (session.isSelected(source))
            times.push_back(milliseconds(Clock::now() - focused));
        else
            ++missed;
    }
    std::printf("FocusIn to source, %d switches: ", count);
    printPercentiles(times);
    std::printf(", missed %d\n", missed);
    std::fflush(stdout);
}

/// To about a millisecond, which `InputMethodSession::waitForContextAfter` is not.
void waitForContextAfter(Session& session, const QString& before) {
    const auto deadline = Clock::now() + 10s;
    for (auto context = before; context.isEmpty() || context == before; context = session.focusedContext()) {
        if (Clock::now() > deadline) {
            std::puts("the launched program has no context");
            return;
        }
        std::this_thread::sleep_for(500us);
    }
}

/// Whether a program that is launched gets what is typed this long after the daemon has its context.
bool isRightFromTheFirstKey(Session& session, TextProgram::Toolkit toolkit, std::chrono::milliseconds after) {
    const auto before = session.focusedContext();
    TextProgram launched(session, toolkit, Session::wmClass(toolkit, Session::pinyin));
    waitForContextAfter(session, before);
    std::this_thread::sleep_for(after);
    session.typeWith(Session::pinyin);
    QElapsedTimer age;
    age.start();
    const auto isRight = [&] { return launched.typed() == Session::textOf(Session::pinyin); };
    waitUntil([&] { return isRight() || age.elapsed() > 2000; });
    return isRight();
}

void measureLaunches(Session& session, TextProgram::Toolkit toolkit, int count,
                     std::chrono::milliseconds after) {
    TextProgram before(session, TextProgram::Toolkit::xim,
                       Session::wmClass(TextProgram::Toolkit::xim, Session::us));
    int right = 0;
    for (int i = 0; i < count; ++i) {
        if (!before.activate() || !session.waitForSource(Session::us))
            std::puts("the other program is not in front");
        pauseForAWhile();
        right += isRightFromTheFirstKey(session, toolkit, after);
    }
    std::printf("%s, typed %ld ms after the daemon had the context of a launched program: %d of %d right\n",
                nameOf(toolkit), static_cast<long>(after.count()), right, count);
    std::fflush(stdout);
}

void measureIdling(Session& session, TextProgram::Toolkit toolkit, unsigned long seconds) {
    TextProgram front(session, toolkit, Session::wmClass(toolkit, Session::pinyin));
    session.waitForSource(Session::pinyin);
    std::this_thread::sleep_for(5s);
    std::printf("%s program in front: ", nameOf(toolkit));
    printIdleWakeUps(session.program->processId(), seconds);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const std::string framework = argc > 1 ? argv[1] : "ibus";
    if (framework == "ibus-alone") {
        measureIBusAlone(argc > 2 ? std::atoi(argv[2]) : 100);
        return 0;
    }
    if (framework != "ibus" && framework != "fcitx") {
        std::fprintf(stderr,
                     "usage: %s ibus|fcitx [SWITCHES [LAUNCHES [IDLE SECONDS]]] | ibus-alone [TIMES]\n",
                     argv[0]);
        return 2;
    }
    Session session(QString::fromStdString(framework));
    measureSwitches(session, argc > 2 ? std::atoi(argv[2]) : 200);
    using enum TextCommand::Toolkit;
    const int launches = argc > 3 ? std::atoi(argv[3]) : 50;
    for (const auto toolkit : {qt, gtk, xim}) {
        for (const auto after : {0ms, 5ms})
            measureLaunches(session, toolkit, launches, after);
    }
    for (const auto toolkit : {qt, xim})
        measureIdling(session, toolkit, argc > 4 ? std::strtoul(argv[4], nullptr, 10) : 60);
}
