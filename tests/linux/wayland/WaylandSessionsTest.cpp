#include <QImage>
#include <gtest/gtest.h>

#include "tests/linux/support/Groups.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/WaylandSession.h"
#include "virtual-desktop/WaylandTextProgram.h"
#include "virtual-desktop/WaylandWindow.h"

namespace quorvane {
namespace {

class WaylandSessions : public testing::TestWithParam<std::string> {
protected:
    static constexpr std::uint8_t enter = 36, g = 42, shift = 50;

    bool select(unsigned layout, WaylandWindow& front) {
        server.selectLayout(layout);
        return waitUntil([&] { return server.layout() == layout && front.group() == layout; });
    }

    WaylandSession session{GetParam()};
    WaylandServer& server = *session.server;
};

INSTANTIATE_TEST_SUITE_P(Of, WaylandSessions, testing::Values("sway", "kwin", "gnome"),
                         [](const auto& each) { return each.param; });

TEST_P(WaylandSessions, WhatIsTypedArrivesInTheWindowInFrontInTheSelectedLayout) {
    WaylandWindow first("first"), second("second", "org.example.Second");
    ASSERT_TRUE(server.activate("first"));
    ASSERT_TRUE(select(ru, first));
    server.pressTogether({shift, g});
    server.type({g});
    EXPECT_TRUE(waitUntil([&] { return first.typed() == "Пп"; })) << first.typed().toStdString();

    ASSERT_TRUE(server.activate("org.example.Second"));
    EXPECT_FALSE(server.isInFront("first"));
    ASSERT_TRUE(select(us, second));
    server.type({g});
    EXPECT_TRUE(waitUntil([&] { return second.typed() == "g"; })) << second.typed().toStdString();
    EXPECT_EQ(first.typed(), "Пп");
}

TEST_P(WaylandSessions, RealProgramsTellWhatIsTyped) {
    using Toolkit = WaylandTextProgram::Toolkit;
    std::vector toolkits{Toolkit::qt, Toolkit::gtk, Toolkit::xim};
    if (GetParam() != "kwin") toolkits.push_back(Toolkit::foot); // On KWin's virtual screen it divides by 0.
    server.selectLayout(ru);
    for (const auto toolkit : toolkits) {
        WaylandTextProgram program(server, toolkit, QString("Program%1").arg(int(toolkit)));
        ASSERT_TRUE(waitUntil([&] { return server.layout() == ru; }));
        server.type({g, enter});
        EXPECT_TRUE(waitUntil([&] { return program.typed() == "п"; }))
            << int(toolkit) << program.typed().toStdString();
    }
}

TEST_P(WaylandSessions, AWindowIsMovedAndSeen) {
    WaylandWindow window("black");
    const QRect place(100, 200, 400, 300);
    ASSERT_TRUE(server.activate("black"));
    EXPECT_TRUE(waitUntil([&] {
        server.move("black", place);
        return server.place("black") == place;
    }));
    const auto file = session.folders.home() + "/screen.png";
    EXPECT_TRUE(waitUntil([&] {
        server.saveScreenshot(file);
        const QImage screen(file);
        return screen.pixelColor(place.center()) == Qt::black && screen.width() == 1280;
    }));
}

TEST_P(WaylandSessions, IsThereAgainAfterItWasKilled) {
    server.kill();
    server.restart();
    WaylandWindow window("window");
    ASSERT_TRUE(server.activate("window"));
    ASSERT_TRUE(select(de, window));
}

} // namespace
} // namespace quorvane
