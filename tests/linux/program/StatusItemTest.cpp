// The item in the system tray, with a tray that may not answer.

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

#include "linux/support/TestWindow.h"
#include "virtual-desktop/ProgramSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

/// Stands in for the desktop's watcher of status notifiers, on the session bus of now. It answers nobody
/// until it is told to.
class Watcher : public QDBusVirtualObject {
public:
    Watcher() {
        bus_.registerVirtualObject("/StatusNotifierWatcher", this);
        bus_.registerService(name);
    }
    ~Watcher() override { QDBusConnection::disconnectFromBus("watcher"); }

    void startAnswering() {
        isAnswering_ = true;
        for (const auto& message : std::exchange(unanswered_, {}))
            answer(message);
    }

    /// The program that has shown an item; empty as long as none has.
    const QString& item() const { return item_; }

    QDBusMessage askItem(const QString& interface, const QString& method, const QVariantList& arguments) {
        auto question = QDBusMessage::createMethodCall(item_, "/StatusNotifierItem", interface, method);
        question.setArguments(arguments);
        return bus_.call(question);
    }
    QVariant property(const QString& propertyName) {
        const auto answer =
            askItem("org.freedesktop.DBus.Properties", "Get", {"org.kde.StatusNotifierItem", propertyName});
        return answer.arguments().value(0).value<QDBusVariant>().variant();
    }
    QString toolTip() {
        const auto told = property("ToolTip").value<QDBusArgument>();
        QString icon, title;
        told.beginStructure();
        told >> icon;
        told.asVariant(); // its pixels
        told >> title;
        while (!told.atEnd())
            told.asVariant(); // A structure that is not read to its end leaks.
        told.endStructure();
        return title;
    }

    QString introspect(const QString& /*path*/) const override {
        return "<interface name='" + name +
               "'><property name='IsStatusNotifierHostRegistered' type='b' access='read'/></interface>";
    }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*bus*/) override {
        if (message.member() == "Introspect") return !isAnswering_;
        isAnswering_ ? answer(message) : unanswered_.append(message);
        return true;
    }

private:
    void answer(const QDBusMessage& message) {
        if (message.member() == "RegisterStatusNotifierItem") item_ = message.service();
        const auto isThere = QVariant::fromValue(QDBusVariant(true));
        bus_.send(message.member() == "Get" ? message.createReply(isThere) : message.createReply());
    }

    const QString name = "org.kde.StatusNotifierWatcher";
    QDBusConnection bus_ =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), "watcher");
    bool isAnswering_ = false;
    QList<QDBusMessage> unanswered_;
    QString item_;
};

struct StatusItemOfTray : testing::Test {
    ProgramSession session_;
};

TEST_F(StatusItemOfTray, WaitsForATrayThatDoesNotAnswerYetAndNothingElseDoes) {
    session_.folders.write("data/applications/org.kde.kate.desktop",
                           "[Desktop Entry]\nType=Application\nName=Kate\nExec=kate\n");
    session_.folders.write("data/icons/hicolor/index.theme",
                           "[Icon Theme]\nName=Hicolor\nDirectories=22\n[22]\nSize=22\n");
    const auto name = QString::fromStdString(std::string(maker::bundleIdentifier));
    const auto icon = session_.folders.dataHome() + "/icons/hicolor/22/" + name + ".png";
    ASSERT_TRUE(QDir().mkpath(QFileInfo(icon).path()));
    ASSERT_TRUE(QFile::copy(QUORVANE_SOURCE_DIR "/packaging/linux/icons/22.png", icon));
    Watcher tray;
    session_.startProgram();
    session_.setRule("org.kde.kate", "xkb:ru");
    const TestWindow kate({"class=kate"});
    ASSERT_TRUE(session_.waitForGroup(1));
    EXPECT_EQ(tray.item(), "");
    tray.startAnswering();
    ASSERT_TRUE(waitUntil([&] { return !tray.item().isEmpty(); }));
    EXPECT_TRUE(waitUntil([&] { return tray.toolTip() == "Kate: Russian (rule)"; }))
        << tray.toolTip().toStdString();
    EXPECT_EQ(tray.property("IconName"), name) << "so that the tray can have a picture of its own";

    tray.askItem("org.kde.StatusNotifierItem", "Activate", {100, 100}); // a click on it
    const auto x = XConnection::open();
    EXPECT_TRUE(waitUntil([&] { return std::ranges::any_of(stackedWindows(*x), &StackedWindow::isPopUp); }))
        << "its menu";
}

TEST_F(StatusItemOfTray, IsShownByAnOlderTrayWheneverThatComes) {
    session_.startProgram();
    ASSERT_TRUE(waitUntil([&] { return session_.program->errors().contains("no system tray"); }));
    const RunningProgram tray("trayer", {"--edge", "bottom", "--expand", "true"});
    EXPECT_TRUE(waitUntil([] {
        QProcess windows;
        windows.start("xwininfo", {"-root", "-tree"});
        windows.waitForFinished();
        return windows.readAll().contains("(\"quorvane\" \"Quorvane\")");
    }));
}

} // namespace
} // namespace quorvane
