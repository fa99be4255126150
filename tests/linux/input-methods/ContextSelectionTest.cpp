#include <array>
#include <functional>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/linux/input-methods/ContextSelection.h"

namespace quorvane {
namespace {

/// What happens, each time followed by what is called for and, if that is another one, the state with what is
/// current. A context's name begins with its process, `0` if that is unknown, `*` if it is everybody's.
///
///     @a1, @a1:ru  application `a` of process 1 is in front; the layout is `us`, or that one
///     w2           its window in front is of process 2
///     .            it is settled
///     =ru          `ru` is selected
///     ~1x:us       told: context `1x` has the focus, and `us`
///     sq:us, mq:us seen: context `q`, of which nothing will be told, or may be
///     n, n:us      no context is seen; the last one has `us`
///     + -          the daemon has done, or refused, what it was asked to
///     h            something may have changed
///     g f          gives up; forgets
///     l9/31        nine looks, if there are so many, which take 31 milliseconds
///     t/8          the next look would be after eight milliseconds
///     x/no         whether the application in front is without a context
///
///     >ru          have the daemon select it
///     ? ?9         look, that often
///     !ru          it is refused
class Trace {
public:
    /// What that becomes when its events happen.
    static std::string of(const std::string& trace) {
        Trace performed;
        std::istringstream words(trace);
        for (std::string word; words >> word;) {
            if (std::string(">?![").find(word.front()) == std::string::npos) performed.happens(word);
        }
        return performed.text_.str();
    }

private:
    static int processOf(char digit) { return digit == '*' ? ContextSelection::anyProcess : digit - '0'; }

    void happens(const std::string& event) {
        const auto colon = std::min(event.find(':'), event.size());
        const auto name = event.substr(1, colon - 1), value = event.substr(std::min(colon + 1, event.size()));
        text_ << (text_.str().empty() ? "" : " ") << event.substr(0, event.find('/'));
        events_.at(event.front())(name, value);
        if (looks_ > 0) text_ << " ?";
        if (looks_ > 1) text_ << looks_;
        looks_ = 0;
        text_ << calls_.str();
        calls_.str({});
        constexpr std::array states{"free", "seeking", "sending", "missed", "reached"};
        const auto state = std::string(" [").append(states.at(std::size_t(selection_.state()))) + ':' +
                           selection_.current().value_or("-") + ']';
        if (std::exchange(state_, state) != state) text_ << state;
    }

    void look(int most) {
        std::chrono::milliseconds passed{};
        for (; most > 0 && selection_.nextLook(); --most) {
            passed += *selection_.nextLook();
            selection_.lookAgain();
        }
        text_ << '/' << passed.count();
    }

    using Text = const std::string&;
    const std::map<char, std::function<void(Text, Text)>> events_{
        {'@',
         [this](Text name, Text layout) {
             selection_.activated({name, processOf(name.back())}, layout.empty() ? "us" : layout);
         }},
        {'w', [this](Text process, Text) { selection_.windowActivated(std::stoi(process)); }},
        {'.', [this](Text, Text) { selection_.settled(); }},
        {'=', [this](Text name, Text) { selection_.select(name); }},
        {'~',
         [this](Text name, Text has) {
             selection_.told({name, processOf(name.front())}, has);
         }},
        {'s', [this](Text name, Text has) { selection_.seen(name, has); }},
        {'m', [this](Text name, Text has) { selection_.seen(name, has, true); }},
        {'n',
         [this](Text, Text has) { selection_.seenNone(has.empty() ? std::nullopt : std::optional(has)); }},
        {'+', [this](Text, Text) { selection_.answered(true); }},
        {'-', [this](Text, Text) { selection_.answered(false); }},
        {'h', [this](Text, Text) { selection_.mayHaveChanged(); }},
        {'g', [this](Text, Text) { selection_.giveUp(); }},
        {'f', [this](Text, Text) { selection_.forget(); }},
        {'l', [this](Text most, Text) { look(std::stoi(most)); }},
        {'t',
         [this](Text, Text) {
             text_ << '/'
                   << (selection_.nextLook() ? std::to_string(selection_.nextLook()->count()) : "none");
         }},
        {'x', [this](Text, Text) { text_ << (selection_.isWithoutContext() ? "/yes" : "/no"); }}};
    std::ostringstream text_, calls_;
    std::string state_ = " [free:-]";
    int looks_ = 0;
    ContextSelection selection_{{.select = [this](const auto& name) { calls_ << " >" << name; },
                                 .look = [this] { ++looks_; },
                                 .refused = [this](const auto& name) { calls_ << " !" << name; }}};
};

void expect(std::initializer_list<const char*> traces) {
    for (const auto* trace : traces)
        EXPECT_EQ(Trace::of(trace), trace);
}

TEST(ContextSelection, EachContextOfTheApplicationInFrontGetsTheWishOnce) {
    expect({
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] ~1x:ru [reached:ru] . ~1y:us >ru "
        "[sending:ru] + [missed:ru] ~1y:ru [reached:ru] ~1x:ru ~1x:hangul [free:hangul] ~1y:ru [free:ru]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] ~1x:us ~1x:ru [reached:ru] +",
        "@a1 =ru [seeking:ru] ~1x:ru [reached:ru] t/none",
        "~1x:us [free:us] @a1 t/none =ru >ru [sending:ru] t/none + [missed:ru] ~1x:ru [reached:ru] t/none "
        "=de >de [sending:de] + [missed:de] ~1x:de [reached:de]",
    });
}

TEST(ContextSelection, OthersContextsAreLeftAlone) {
    expect({
        "@a1 =us [seeking:us] ~1x:us [reached:us] . @b2 [free:-] =ru [seeking:ru] ~1x:us ~2y:us >ru "
        "[sending:ru] + [missed:ru] ~2y:ru [reached:ru] ~1x:us [seeking:ru] ~2y:ru [reached:ru]",
        // A launcher is no application in front. What is selected later than at an activation is for it as
        // well.
        "@a1 . ? @b2 ~3l:us =ru [seeking:ru] ~3l:us . ~3l:us =de >de [sending:de] ~1x:us [seeking:de] ~3l:us "
        "[sending:de]",
        // An application may have several processes.
        "@a1 =ru [seeking:ru] ~2y:us w2 >ru [sending:ru]",
        "@a1 @b2 @a1 w5 ? . ? =ru [seeking:ru] ~1x:us >ru [sending:ru]",
        "@a1 @b2 w1 ? w3 ? . ? =ru [seeking:ru] ~1x:us >ru [sending:ru]",
        // Two applications in one process: the other one's context keeps the focus for a moment.
        "@a1 =us [seeking:us] ~1x:us [reached:us] . @b1 [free:-] =ru [seeking:ru] ~1x:us . ~1y:us >ru "
        "[sending:ru]",
        "@a1 =us [seeking:us] ~1x:us [reached:us] @b1 [free:-] . =ru >ru [sending:ru]",
    });
}

TEST(ContextSelection, OneWithoutAProcessMayBeTheOneThatWasLeftAtFirst) {
    expect({
        "@a1 =us [seeking:us] ~0x:us [reached:us] @b2 [free:-] =ru [seeking:ru] ~0x:us . >ru [sending:ru]",
        "@a1 =us [seeking:us] ~0x:us [reached:us] @b2 [free:-] =ru [seeking:ru] ~0y:us >ru [sending:ru]",
        "@a1 =ru [seeking:ru] ~0y:us >ru [sending:ru] @b2 [free:-] =de [sending:de] + >de ~0y:ru + "
        "[missed:de]",
        "@a1 ~0y:us [free:us] @b2 [free:-] =de [seeking:de] . >de [sending:de]",
        "@a1 =ru [seeking:ru] sq:us >ru [sending:ru] @b2 [free:-] =de [seeking:de] + . ? >de [sending:de]",
    });
}

TEST(ContextSelection, WhatNothingIsToldOfIsSeen) {
    expect({
        "@a1 =ru [seeking:ru] l1/0 ? sq:us >ru [sending:ru] + [missed:ru] sq:us l10/32 ?9 >ru [sending:ru] "
        "sq:ru [reached:ru] t/32 . ? t/none h ? sq:hangul [free:hangul]",
        "@a1 =ru [seeking:ru] l1/0 ? sq:us >ru [sending:ru] + [missed:ru] ~1x:us >ru [sending:ru]",
        "@a1 =ru [seeking:ru] sq:ru [reached:ru] n [seeking:ru] sq:ru [reached:ru]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] n n:ru [reached:ru] h ~1x:ru",
        // By the one name and by the other.
        "@a1 =ru [seeking:ru] mq:us >ru [sending:ru] + [missed:ru] ~1x:us",
        "@a1 =ru [seeking:ru] mq:us >ru [sending:ru] + [missed:ru] mq:ru [reached:ru] ~1x:us [free:us]",
    });
}

TEST(ContextSelection, OneSelectionIsUnderWayAtATime) {
    expect({
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] =de [sending:de] ~1x:ru + >de ~1x:de [reached:de] +",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] =us [sending:us] + >us ~1x:ru ~1x:us [reached:us] +",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] =us >us [sending:us] + [missed:us] "
        "~1x:ru ~1x:us [reached:us]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] ~1y:us + >ru + [missed:ru] ~1y:ru [reached:ru]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] ~1y:us >ru [sending:ru] + [missed:ru]",
    });
}

TEST(ContextSelection, WhatWasSentForTheApplicationBeforeMayReachThisOne) {
    expect({
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] @b2 [free:-] =us [seeking:us] + ~2y:us >us "
        "[sending:us] + [missed:us] ~2y:us [reached:us]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] ~2y:us [seeking:ru] @b2 [free:-] =us [sending:us] + "
        ">us ~2y:ru ~2y:us [reached:us]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] ~1x:ru [reached:ru] ~2y:us [seeking:ru] @b2 [free:-] "
        "=us [sending:us] + >us + [missed:us] ~2y:us [reached:us]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] ~2y:us [seeking:ru] @b2 [free:-] =us >us "
        "[sending:us] ~2y:ru + [missed:us] ~2y:us [reached:us] @a1 [free:-]",
        // What it has is known if it has it.
        "@a1 ~2y:us @b2 [free:us]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] ~1x:ru [reached:ru] + ~2y:us [seeking:ru] @b2 "
        "[free:us]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] ~1x:ru [reached:ru] ~2y:us [seeking:ru] "
        "@b2 [free:us]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] ~2y:us [seeking:ru] @b2 [free:-] . "
        "[free:us]",
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] ~2y:us [seeking:ru] g [free:-] ~2y:us "
        "@b2 [free:us]",
    });
}

TEST(ContextSelection, WhatIsMissedIsSentFourTimes) {
    expect({
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] + [missed:ru] l10/32 ?9 >ru [sending:ru] + [missed:ru] "
        "l10/32 ?9 >ru [sending:ru] + [missed:ru] ~1y:us >ru [sending:ru] + [missed:ru] l10/32 ?9 >ru "
        "[sending:ru] + [missed:ru] l10/32 ?9 >ru [sending:ru] + [missed:ru] l10/32 ?9 >ru [sending:ru] + "
        "[missed:ru] l10/32 ?9 !ru [free:us]",
        "@a1 =gone [seeking:gone] ~1x:us >gone [sending:gone] - [missed:gone] l10/32 ?9 !gone [free:us] "
        "~2y:us @b2",
    });
}

TEST(ContextSelection, WhatAnApplicationHadIsWishedForAgain) {
    expect({
        "@a1 =us [seeking:us] ~1x:us [reached:us] @b2 [free:-] =ru [seeking:ru] ~2y:us >ru [sending:ru] + "
        "[missed:ru] ~2y:ru [reached:ru] @a1 [seeking:us] t/8 ~1x:us [reached:us] @b2 [seeking:ru] t/8 "
        "~2y:hangul >ru [sending:ru]",
        "@a1 =us [seeking:us] ~1x:us [reached:us] @b2 [free:-] ~2y:us [free:us] @a1 [seeking:us] ~1x:de >us "
        "[sending:us] @b2 [free:-] @a1 [sending:us]",
        "@a1 =us [seeking:us] ~1x:us [reached:us] @b2 [free:-] @a1 [reached:us] ~1x:us ~1x:de [free:de] @b2 "
        "[free:-] ~2y:us [free:us] @a1 [free:-]",
        // One without a context has a layout.
        "@a1 =us [seeking:us] . ? @b2 [free:-] @a1 [seeking:us] @b2 [free:-] @a1:ru",
        "@a1 =us [seeking:us] ~1x:us [reached:us] @b2 [free:-] ~2y:us [free:us] @a1:ru [seeking:us] @b2 "
        "[free:us] @a1:ru [seeking:us]",
        "@a0 =us [seeking:us] ~0x:us [reached:us] @b2 [free:-] @a0",
    });
}

TEST(ContextSelection, LooksAreOftenAtFirstAndEnd) {
    expect({
        "@a1 t/0 =ru [seeking:ru] x/no l10/32 ?10 l1/32 ? l29/928 ?29 l8/8160 ?8 x/yes t/none ~1x:us >ru "
        "[sending:ru] x/no",
        "@a1 l5/4 ?5 l1/1 ? l1/1 ? l1/2 ? l1/8 ? l1/16 ?",
        "@a1 =ru [seeking:ru] l48/9152 ?48 w2 ? t/0",
        "@a1 =ru [seeking:ru] l48/9152 ?48 . ? =de [seeking:de] t/0",
        "@a1 ~2y:us t/0",
    });
}

TEST(ContextSelection, AContextMayBeEverybodys) {
    expect({
        "~*x: ~*x:us [free:us] ~*x: >us [sending:us] ~*x:us [reached:us]",
        "~*x:us [free:us] =ru >ru [sending:ru] ~*x:us + [missed:ru] ~*x:ru [reached:ru] ~*x: >ru "
        "[sending:ru]",
        "@a1 =ru [seeking:ru] ~*x:us >ru [sending:ru]",
        "~*x:us [free:us] =us [reached:us] =ru >ru [sending:ru] =pinyin [sending:pinyin] =hangul "
        "[sending:hangul] =de [sending:de] ~*x:ru + >de ~*x:de [reached:de] +",
        "~*x:us [free:us] =de >de [sending:de] ~*x:de [reached:de] + ~*x:us [free:us] =de >de [sending:de] "
        "~*x:de [reached:de] + ~*x:us [free:us]",
    });
}

TEST(ContextSelection, ADaemonThatHangsOrEndsIsAskedNothingMore) {
    expect({
        "@a1 =ru [seeking:ru] ~1x:us >ru [sending:ru] g [free:-] h ? t/none =de [seeking:de] ~1x:us >de "
        "[sending:de] + [missed:de]",
        "@a1 =us [seeking:us] @b2 [free:-] g @a1 [seeking:us]",
        "@a1 =us [seeking:us] @b2 [free:-] f @a1",
    });
}

} // namespace
} // namespace quorvane
