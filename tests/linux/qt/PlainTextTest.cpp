#include <QTextDocument>
#include <gtest/gtest.h>

#include "platform/linux/qt/PlainText.h"

namespace quorvane {
namespace {

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
