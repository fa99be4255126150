// Messages: sheets and tool tips.

#include <QApplication>
#include <QTextDocument>
#include <QWidget>
#include <gtest/gtest.h>

#include "linux/support/Keyboard.h"
#include "platform/linux/qt/PlainText.h"
#include "platform/linux/qt/QtAlerts.h"
#include "platform/linux/x11/windows/X11WindowHost.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XClient.h"

namespace quorvane {
namespace {

TEST(QtAlerts, ShowASheetOnTheOpenWindowWhileThatIsThere) {
    XClient user;
    const auto x = XConnection::open();
    X11WindowHost host(*x);
    QtAlerts alerts(host);
    constexpr std::uint8_t none = 0;
    for (const auto& [key, answer] :
         {std::pair(enter, alertFirstButtonReturn), {escape, alertFirstButtonReturn + 1}, {none, 0}}) {
        QWidget window;
        window.show();
        ASSERT_TRUE(waitUntil([&] { return window.isActiveWindow(); }));
        int given = 0;
        alerts.beginSheet({.messageText = "?", .buttons = {"First", "Second"}},
                          [&](const auto& alertAnswer) { given = alertAnswer.response; });
        ASSERT_TRUE(waitUntil([&] {
            auto* sheet = QApplication::activeWindow();
            return sheet && sheet->parentWidget() == &window;
        }));
        if (key == none) continue; // The window goes, and the sheet with it.
        user.pressTogether({key});
        EXPECT_TRUE(waitUntil([&, wanted = answer] { return given == wanted; })) << given;
    }
    EXPECT_TRUE(waitUntil([] { return QApplication::topLevelWidgets().isEmpty(); }));
}

TEST(PlainText, IsReadAsItStands) {
    for (const QString text : {"Kate", "a & b", "a &amp; b", "<b>bold</b>", "1 < 2 > 0", "<i>a\n  b"}) {
        const auto toolTip = toolTipOf(text);
        QTextDocument shown;
        if (Qt::mightBeRichText(toolTip))
            shown.setHtml(toolTip);
        else
            shown.setPlainText(toolTip);
        EXPECT_EQ(shown.toPlainText(), text) << toolTip.toStdString();
        EXPECT_FALSE(Qt::mightBeRichText(withoutMarkup(text))) << text.toStdString();
    }
}

} // namespace
} // namespace quorvane
