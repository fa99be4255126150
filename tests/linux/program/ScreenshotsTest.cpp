// The preferences window as people see it. The pictures stay in the build folder, to be looked at.

#include <QDir>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include "linux/program/PreferencesSession.h"
#include "linux/support/Portal.h"
#include "settings/AppRule.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"
#include "settings/RuleTableOrder.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

struct Look {
    const char* language;
    unsigned scheme; ///< The portal's: 1 is dark.
    QStringList tabs;
};

QString nameOf(const Look& look) {
    return QString(look.language) + (look.scheme == 1 ? "_dark" : "_light");
}

void PrintTo(const Look& look, std::ostream* stream) {
    *stream << nameOf(look).toStdString();
}

const QStringList english = {"Rules", "Preference", "Learn", "Free apps", "Contact us"};
const QStringList chinese = {"规则", "偏好设置", "学习", "免费应用", "联系我们"};

class Screenshots : public testing::TestWithParam<Look> {
protected:
    Screenshots() {
        qputenv("LANGUAGE", GetParam().language);
        QDir().mkpath(folder());
        const std::pair<const char*, QColor> applications[] = {
            {"Terminal", {70, 80, 100}},
            {"Firefox", {230, 110, 40}},
            {"Kate", {60, 140, 220}},
            {"微信", {70, 180, 90}},
            {"テキストエディター", {150, 90, 190}},
            {"An application whose name is far too long to be "
             "seen in a table as narrow as this one is, really",
             {200, 60, 90}}};
        std::vector<std::string> order;
        const char* inputs[] = {"xkb:us", "xkb:ru", "xkb:de"};
        for (const auto& [name, colour] : applications) {
            order.push_back("application" + std::to_string(order.size()));
            preferences_.install(QString::fromStdString(order.back()), name, icon(colour));
            setRuleInput(standard(), order.back(), inputs[order.size() % std::size(inputs)]);
        }
        setOrderOfAppsRule(standard(), order);
        setShortcut(standard(), "xkb:ru", InputShortcut{15, 0x40000 + 0x80000}.record());
        standard().setBool(true, key::enableTipOfState);
        preferences_.session.shared()->setObject(
            PropertyList::Array{place("application1", "Address field", "xkb:us"),
                                place("application3", "聊天窗口", "xkb:de")},
            key::arrOfLocationInfo);
    }
    ~Screenshots() override { qunsetenv("LANGUAGE"); }

    static PropertyList place(const char* application, const char* name, const char* input) {
        return PropertyList::Dictionary{
            {"BundleIdentifier", application}, {"Name", name}, {"InputID", input}};
    }
    static QString folder() { return QUORVANE_SCREENSHOTS; }
    UserDefaults& standard() { return preferences_.session.stores.standardUserDefaults(); }

    QString icon(QColor colour) {
        QImage picture(64, 64, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(picture.rect(), 14, 14);
        painter.setBrush(Qt::white);
        painter.drawEllipse(20, 20, 24, 24);
        painter.end();
        const auto path = preferences_.session.folders.home() + "/" + colour.name().mid(1) + ".png";
        picture.save(path);
        return path;
    }

    /// The window once it has come to rest.
    QImage picture(const QString& path) {
        QImage before, now;
        waitUntil([&] {
            before = now;
            QProcess::execute("import", {"-window", QString::number(preferences_.window()), path});
            now = QImage(path);
            return !now.isNull() && now == before;
        });
        return now;
    }

    PreferencesSession preferences_;
    Portal portal_{GetParam().scheme};
};

TEST_P(Screenshots, AreOfEveryTabInTheUsersLanguageAndColours) {
    preferences_.open();
    std::vector<QImage> pictures;
    for (const auto& tab : GetParam().tabs) {
        preferences_.click("radio button", tab);
        ASSERT_TRUE(waitUntil([&] { return preferences_.tree.isChecked("radio button", tab); }));
        const auto number = QString::number(pictures.size());
        pictures.push_back(picture(folder() + "/" + nameOf(GetParam()) + "_" + number + ".png"));
        ASSERT_GT(pictures.back().width(), 500);
        EXPECT_EQ(pictures.back().pixelColor(3, 3).lightness() < 128, GetParam().scheme == 1);
        for (std::size_t other = 0; other + 1 < pictures.size(); ++other)
            EXPECT_NE(pictures[other], pictures.back());
    }
}

INSTANTIATE_TEST_SUITE_P(Window, Screenshots,
                         testing::Values(Look{"en", 2, english}, Look{"en", 1, english},
                                         Look{"zh_CN", 2, chinese}, Look{"zh_CN", 1, chinese}),
                         [](const auto& instance) { return nameOf(instance.param).toStdString(); });

} // namespace
} // namespace quorvane
