// A million things that happen to the program in any order, with what must hold all the time.

#include <limits>
#include <random>

#include <malloc.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

class Soak : public ProgramTest {
protected:
    template <class T>
    const T& any(const std::vector<T>& choices) {
        return choices[random_() % choices.size()];
    }

    PropertyList anything() {
        constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
        return any(std::vector<PropertyList>{{},
                                             true,
                                             -1,
                                             std::numeric_limits<std::int64_t>::max(),
                                             1e300,
                                             nan,
                                             "ru",
                                             "12",
                                             PropertyList::Array{1},
                                             Dictionary{{"X", nan}, {"Y", -1e300}, {"Width", "wide"}},
                                             Dictionary{{"id", 5}}});
    }

    void happenAnything() {
        static const std::vector<std::string> words = {"first.app",
                                                       "ru.app",
                                                       "de.app",
                                                       "nameless",
                                                       "front:com.apple.Spotlight",
                                                       "unhides:ru.app",
                                                       "quits:ru.app",
                                                       "quits:de.app",
                                                       "quits:com.runningwithcrayons.Alfred-5",
                                                       "companion",
                                                       "companion-quits",
                                                       "alfred-runs",
                                                       "mouse",
                                                       "spotlight",
                                                       "alfred",
                                                       "closes",
                                                       "=us",
                                                       "=ru",
                                                       "=",
                                                       "screen:2",
                                                       "no-screen",
                                                       "press:1"};
        static const std::vector<std::string> flags = {"0x100",    "0x10100",  "0x800100", "0x100108",
                                                       "0x100108", "0x110108", "0x40101",  "0x0"};
        switch (random_() % 6) {
        case 0:
            return standard_.setObject(anything(), any(keys_));
        case 1:
            return desktop_.defaults.writeFromOutside(maker::sharedSuiteName, key::switchTimes, anything());
        case 2:
            return desktop_.distributedNotifications.postFromOutside({"AXWindowAdjusted", anything()});
        case 3:
            return happen(any(flags));
        default:
            return happen(any(words));
        }
    }

    /// Every launcher is closed, every key is released, and time passes.
    void settle() {
        for (const auto* word : {"closes", "0x100", "2"})
            happen(word);
        ASSERT_EQ(desktop_.runLoop.pendingCount(), 0U) << "a timer is left armed";
    }

    const std::vector<std::string_view> keys_{key::defaultInput, key::enableTipOfState, key::followWindow,
                                              key::hiddenIconInStatusBar, key::autoStartAtLogin};
    std::mt19937 random_{20240229};
};

TEST_F(Soak, AMillionEventsLeaveNothingBehindAndEachApplicationHasItsSource) {
    constexpr int events = 1'000'000;
    std::size_t memoryInUse = 0;
    desktop_.journal.stop();
    launch();
    for (int event = 0; event < events; ++event) {
        happenAnything();
        desktop_.runLoop.advance(any<double>({0, 0, 0.01, 0.05, 0.1, 0.25}));
        if (event % 50 != 0) continue;
        settle();
        for (const auto* word : {"companion-quits", "first.app", "1", "ru.app", "1"})
            happen(word);
        ASSERT_EQ(desktop_.inputSources.currentID(), "ru") << "after event " << event;
        settle();
        if (HasFatalFailure()) return;
        if (event == events / 4) memoryInUse = mallinfo2().uordblks;
    }
    constexpr std::size_t fluctuation = 64 * 1024;
    EXPECT_LT(mallinfo2().uordblks, memoryInUse + fluctuation);
}

} // namespace
} // namespace quorvane
