// The preferences window as people see it. The pictures stay in the build folder, to be looked at.

#include <QDir>
#include <QImage>
#include <gtest/gtest.h>

#include "linux/program/PreferencesSession.h"
#include "linux/support/Portal.h"
#include "settings/AppRule.h"
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

const QStringList english = {"Rules", "Preference", "Learn", "Free apps", "Contact us"};
const QStringList chinese = {"规则", "偏好设置", "学习", "免费应用", "联系我们"};

class Screenshots : public testing::TestWithParam<Look> {
protected:
    Screenshots() {
        qputenv("LANGUAGE", GetParam().language);
        QDir().mkpath(folder());
        std::vector<std::string> order;
        for (const auto* name :
             {"Terminal", "微信", "An application whose name is far too long to be seen"}) {
            order.push_back("application" + std::to_string(order.size()));
            preferences_.install(QString::fromStdString(order.back()), name);
            setRuleInput(standard(), order.back(), "xkb:ru");
        }
        setOrderOfAppsRule(standard(), order);
        preferences_.session.shared()->setObject(
            PropertyList::Array{PropertyList::Dictionary{
                {"BundleIdentifier", "application1"}, {"Name", "聊天窗口"}, {"InputID", "xkb:de"}}},
            key::arrOfLocationInfo);
    }
    ~Screenshots() override { qunsetenv("LANGUAGE"); }

    static QString folder() { return QUORVANE_SCREENSHOTS; }
    UserDefaults& standard() { return preferences_.session.stores.standardUserDefaults(); }

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
                         testing::Values(Look{"en", 2, english}, Look{"zh_CN", 1, chinese}),
                         [](const auto& instance) { return nameOf(instance.param).toStdString(); });

} // namespace
} // namespace quorvane
