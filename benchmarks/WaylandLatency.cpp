// How long the layout takes to follow the focus in a Wayland session, as the window that gets it sees it:
// from its "enter" to the group of its rule. What is typed soon after, and what idling costs. Usage:
// sway|kwin|gnome [switches] [keys] [idle seconds]

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <QCoreApplication>

#include "benchmarks/ProcessFigures.h"
#include "virtual-desktop/OrdinaryUser.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/WaylandProgramSession.h"
#include "virtual-desktop/WaylandWindow.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;

constexpr std::uint8_t gKey = 42;
constexpr auto usual = 20ms; // No hand is faster.

/// Of a window's events.
struct Entered {
    qint64 time = 0;                     ///< Microseconds of the steady clock.
    std::optional<qint64> layoutIsRight; ///< When the group of its rule was there.
};

class Measured {
public:
    explicit Measured(const std::string& compositor) : session_(compositor) {
        session_.startProgram();
        for (std::size_t i = 0; i < windows_.size(); ++i)
            session_.setRule(names_.at(i), i == 0 ? "xkb:us" : "xkb:ru");
    }

    void measureSwitches(int count) {
        std::vector<double> times;
        int missed = 0;
        for (const std::size_t first : {0U, 1U})
            activate(first);
        for (int i = 0; i < count; ++i) {
            pause();
            const auto entered = activate(std::size_t(i) % 2);
            if (entered.layoutIsRight)
                times.push_back(double(*entered.layoutIsRight - entered.time) / 1000);
            else
                ++missed;
        }
        std::ranges::sort(times);
        const auto at = [&](double share) {
            return times[std::min(times.size() - 1, std::size_t(share * double(times.size())))];
        };
        if (!times.empty())
            std::printf(
                "enter to layout, %d switches: p50 %.2f ms, p99 %.2f ms, longest %.2f ms, missed %d\n", count,
                at(0.5), at(0.99), times.back(), missed);
    }

    void measureKeys(int count) {
        constexpr std::array letters{"g", "п"};
        int wrong = 0;
        for (int i = 0; i < count; ++i) {
            pause();
            const auto which = std::size_t(i) % 2;
            auto& window = windows_.at(which);
            const auto before = window.typed();
            const auto events = window.events().size();
            session_.server->activate(titles_.at(which));
            std::optional<qint64> entered;
            waitUntil([&] { return (entered = lastEnter(window, events)).has_value(); });
            std::this_thread::sleep_until(std::chrono::steady_clock::time_point(
                std::chrono::microseconds(entered.value_or(0)) + usual));
            session_.server->type({gKey});
            waitUntil([&] { return window.typed().size() > before.size(); });
            if (window.typed() != before + letters.at(which)) ++wrong;
        }
        std::printf("keys %lld ms after the enter: %d, wrong %d\n", static_cast<long long>(usual.count()),
                    count, wrong);
    }

    void measureIdling(unsigned long seconds) {
        std::this_thread::sleep_for(3s);
        const auto pid = session_.program->processId();
        std::printf("resident %ld kB; private and written %ld kB\n", memory(pid, "Rss"),
                    memory(pid, "Private_Dirty"));
        printIdleWakeUps(pid, seconds);
    }

private:
    /// So that nothing falls into step with what is measured.
    static void pause() {
        static std::mt19937 random{std::random_device{}()};
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution(30000, 120000)(random)));
    }

    static std::optional<qint64> lastEnter(WaylandWindow& window, std::size_t since) {
        std::optional<qint64> time;
        const auto events = window.events();
        for (std::size_t i = since; i < events.size(); ++i)
            if (events[i].what == "enter") time = events[i].time;
        return time;
    }

    /// Ends when the layout is there, or never comes.
    Entered activate(std::size_t which) {
        auto& window = windows_.at(which);
        const auto since = window.events().size();
        const auto wanted = QString("group %1").arg(which);
        Entered result;
        session_.server->activate(titles_.at(which));
        waitUntil([&] {
            const auto events = window.events();
            result = {};
            for (std::size_t i = since; i < events.size(); ++i) {
                if (events[i].what == "enter") result = {events[i].time, std::nullopt};
                if (events[i].what == wanted && result.time && !result.layoutIsRight)
                    result.layoutIsRight = events[i].time;
            }
            return result.layoutIsRight.has_value();
        });
        return result;
    }

    const std::array<QString, 2> titles_{"first", "second"};
    const std::array<std::string, 2> names_{"first", "second"};
    WaylandProgramSession session_;
    std::array<WaylandWindow, 2> windows_{WaylandWindow("first", "first"), WaylandWindow("second", "second")};
};

} // namespace

int main(int argc, char** argv) {
    becomeOrdinaryUser(argv);
    const QCoreApplication qt(argc, argv);
    const auto number = [&](int place, int usually) {
        return argc > place ? std::atoi(argv[place]) : usually;
    };
    Measured measured(argc > 1 ? argv[1] : "sway");
    measured.measureSwitches(number(2, 200));
    measured.measureKeys(number(3, 100));
    measured.measureIdling(static_cast<unsigned long>(number(4, 60)));
}
