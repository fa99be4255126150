#include <QElapsedTimer>
#include <QLineEdit>
#include <QTimer>
#include <gtest/gtest.h>

#include "platform/linux/text-input/IBusTextInput.h"
#include "virtual-desktop/IBusDaemon.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XClient.h"

namespace quorvane {
namespace {

TEST(IBusTextInput, TypesIntoOwnFieldsWithoutWaitingForTheDaemon) {
    qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    IBusDaemon::setPreloadEngines({"xkb:us::eng", "libpinyin"});
    IBusDaemon daemon;
    daemon.start();
    const auto waitForEngine = [&] {
        return waitUntil(
            [&] { return daemon.setGlobalEngine("libpinyin") && daemon.globalEngine() == "libpinyin"; },
            std::chrono::minutes(1)); // IBus itself gives an engine's process five seconds each time.
    };
    ASSERT_TRUE(waitForEngine());
    IBusTextInput input;
    QLineEdit field;
    field.show();
    QElapsedTimer sinceTurn;
    qint64 longest = 0;
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, &turns,
                     [&] { longest = std::max(longest, sinceTurn.restart()); });
    XClient typist;
    const auto type = [&](const std::vector<std::uint8_t>& keys) {
        for (const auto key : keys)
            typist.pressTogether({key});
    };
    constexpr std::uint8_t n = 57, i = 31, space = 65, one = 10;
    const auto isInUse = [&](bool isIt) { return waitUntil([&] { return input.isInUse() == isIt; }); };
    const auto becomes = [&](const char* text) { return waitUntil([&] { return field.text() == text; }); };
    ASSERT_TRUE(isInUse(true) && waitUntil([&] { return !daemon.currentInputContext().isEmpty(); }));
    // A digit is the field's. With it, the daemon has answered to what came before, too.
    type({n, i, space, one});
    EXPECT_TRUE(becomes("你1")) << field.text().toStdString();
    daemon.stop();
    sinceTurn.start();
    turns.start(10);
    type({n, i});
    EXPECT_TRUE(becomes("你1ni")) << field.text().toStdString();
    EXPECT_LT(longest, 500) << "nothing waits";
    turns.stop();
    daemon.resume();
    EXPECT_TRUE(isInUse(true) && waitForEngine());
    type({n, i, space, one});
    EXPECT_TRUE(becomes("你1ni你1")) << field.text().toStdString();
    daemon.kill();
    EXPECT_TRUE(isInUse(false));
    type({n});
    EXPECT_TRUE(becomes("你1ni你1n")) << field.text().toStdString();
}

} // namespace
} // namespace quorvane
