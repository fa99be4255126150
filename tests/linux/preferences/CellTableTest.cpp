#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include "linux/preferences/ShownTable.h"
#include "linux/support/Keyboard.h"
#include "virtual-desktop/ScratchFolders.h"

namespace quorvane {
namespace {

constexpr std::uint8_t keyZ = 52, keyA = 38, f2 = 68, right = 114, deleteKey = 119;

TEST(CellTableTest, TellsWhichMenuOpensBeforeWhatIsChosenInIt) {
    ShownTable shown(5);
    shown.click(shown.middleOf(2, input));
    ASSERT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
    EXPECT_EQ(shown.log, Log({"opens 2"}));
    EXPECT_EQ(shown.table.currentIndex().row(), 2);
    shown.port.reloadData();
    auto* comboBox = shown.widgetAt<QComboBox>(2, input);
    ASSERT_TRUE(comboBox && comboBox->view()->isVisible()) << "a reload leaves the menu open";
    auto* list = comboBox->view();
    const auto item = list->visualRect(list->model()->index(1, 0)).center();
    shown.click(list->viewport()->mapToGlobal(item));
    EXPECT_TRUE(shown.waitFor({"opens 2", "chose Greek"}));

    shown.log.clear();
    ASSERT_TRUE(waitUntil([&] { return shown.table.hasFocus() && !QApplication::activePopupWidget(); }));
    shown.tap({down, space});
    ASSERT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
    shown.tap({down, down, enter});
    EXPECT_TRUE(shown.waitFor({"opens 3", "chose German"}));

    shown.log.clear();
    ASSERT_TRUE(waitUntil([] { return !QApplication::activePopupWidget(); }));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(shown.widgetAt<QComboBox>(0, input), &key);
    EXPECT_EQ(shown.log, Log({"opens 0", "chose Greek"})) << "also without being open";
}

TEST(CellTableTest, HasRowsDraggedIntoGaps) {
    ShownTable shown(5);
    const auto isDragging = [&] { return shown.table.viewport()->cursor().shape() == Qt::ClosedHandCursor; };
    const auto drag = [&](int row, double to) { // In rows from the top of the first one.
        shown.log.clear();
        shown.actions = 0;
        const auto start = shown.middleOf(row, name);
        shown.moveTo(start);
        shown.user.pressButton(1);
        EXPECT_TRUE(waitUntil([&] { return shown.actions > 0; }));
        shown.moveTo({start.x(), start.y() + int((to - row - 0.5) * shown.table.rowHeight(0))});
    };
    const auto dropsNothing = [&] {
        shown.user.releaseButton(1);
        shown.click(shown.middleOf(0, check));
        return waitUntil([&] { return !shown.log.empty() && shown.log.back().starts_with("check 0"); }) &&
               shown.log.size() == 1;
    };
    drag(1, 3.9);
    EXPECT_TRUE(dropsNothing()) << "not of this table";
    shown.port.registerForDraggedRows();
    for (const auto& [row, to, drops] :
         {std::tuple(1, 3.9, "drops 1 4"), {3, 0.2, "drops 3 0"}, {0, 7, "drops 0 5"}}) {
        drag(row, to);
        EXPECT_TRUE(waitUntil(isDragging));
        shown.user.releaseButton(1);
        EXPECT_TRUE(shown.waitFor({drops})) << drops;
    }
    drag(2, 4.2);
    EXPECT_TRUE(waitUntil(isDragging));
    shown.tap({escape});
    EXPECT_TRUE(waitUntil([&] { return !isDragging(); }));
    EXPECT_TRUE(dropsNothing()) << "given up";
}

TEST(CellTableTest, HasNamesEditedInTheirPlaces) {
    ShownTable shown(5);
    const auto editor = [&] { return shown.table.viewport()->findChild<QLineEdit*>(); };
    const auto edits = [&](const QString& text) {
        return waitUntil([&] { return editor() && editor()->text() == text; });
    };
    const auto isOver = [&] { return waitUntil([&] { return !editor() && shown.table.hasFocus(); }); };
    const auto select = [&](int row) {
        shown.click(shown.middleOf(row, name));
        return waitUntil([&] { return shown.port.selectedRow() == row; });
    };
    ASSERT_TRUE(select(1));
    shown.user.click(1);
    ASSERT_TRUE(edits("1"));
    shown.tap({keyA});
    ASSERT_TRUE(edits("a"));
    ++shown.rowCount;
    shown.port.reloadData();
    ASSERT_TRUE(edits("a")) << "a reload leaves it alone";
    shown.tap({keyZ, enter});
    EXPECT_TRUE(isOver());
    // What begins the editing, and what then ends it without a name: nothing was typed, or given up.
    for (const auto& [begin, end] : {std::pair(f2, Keys{keyA, escape}), {enter, {tab}}}) {
        shown.tap({begin});
        ASSERT_TRUE(edits("1"));
        shown.tap(end);
        EXPECT_TRUE(isOver());
    }
    shown.tap({space});
    ASSERT_TRUE(edits("1"));
    shown.tap({space});
    shown.click(shown.middleOf(4, icon));
    EXPECT_TRUE(shown.waitFor({"renames 1 az", "renames 1  "}));

    static QStringList warnings;
    const auto former = qInstallMessageHandler(
        [](QtMsgType /*type*/, const auto& /*context*/, const QString& text) { warnings.append(text); });
    for (const int left : {2, 0}) {
        EXPECT_TRUE(isOver());
        ASSERT_TRUE(select(left));
        shown.tap({f2, keyA});
        ASSERT_TRUE(edits("a"));
        shown.rowCount = left;
        QMetaObject::invokeMethod(
            &shown.table, [&] { shown.port.reloadData(); }, Qt::QueuedConnection);
        EXPECT_TRUE(waitUntil([&] { return !editor(); })) << "its row has gone";
    }
    qInstallMessageHandler(former);
    EXPECT_EQ(warnings, QStringList());
    EXPECT_EQ(shown.log.size(), 2U) << "what was typed is nobody's name";
}

TEST(CellTableTest, AsksOnlyForWhatIsSeenAndStaysWhereItIs) {
    ShownTable(0); // An empty one comes to rest, too.
    ShownTable shown(1000);
    EXPECT_LT(shown.asked.size(), 20U);
    auto& bar = *shown.table.verticalScrollBar();
    shown.moveTo(shown.middleOf(3, input));
    constexpr std::uint8_t wheelDown = 5;
    shown.user.click(wheelDown);
    EXPECT_TRUE(waitUntil([&] { return bar.value() > 0; })) << "the wheel scrolls the table";
    EXPECT_EQ(shown.log, Log());
    bar.setValue(bar.maximum() / 2);
    shown.port.selectRow(500);
    const int place = bar.value();
    EXPECT_EQ(shown.actions, 0) << "the user has done nothing";
    shown.asked.clear();
    for (const int rows : {1000, 1001, 900}) {
        shown.rowCount = rows;
        shown.port.reloadData();
        EXPECT_EQ(bar.value(), place);
        EXPECT_EQ(shown.port.selectedRow(), 500);
    }
    EXPECT_FALSE(shown.asked.empty());
    EXPECT_GT(*shown.asked.begin(), 470);
    EXPECT_LT(*shown.asked.rbegin(), 530);
    for (const int rows : {500, 3, 0}) {
        shown.rowCount = rows;
        shown.port.reloadData();
        EXPECT_EQ(shown.port.selectedRow(), noRow);
    }
}

TEST(CellTableTest, IsUsedWithTheKeyboardAlone) {
    ShownTable shown(10);
    shown.table.setCurrentIndex(shown.table.model()->index(0, name));
    shown.tap({keyZ});
    EXPECT_TRUE(waitUntil([&] { return shown.port.selectedRow() == 7; })) << "the name that begins with it";
    EXPECT_GT(shown.actions, 0);
    shown.tap({right, right, space, space, down, f2});
    EXPECT_TRUE(shown.waitFor({"check 7 1", "check 7 0", "check 8 1"}));
    auto& bar = *shown.table.verticalScrollBar();
    shown.table.resize(900, 100);
    waitUntil([&] { return bar.maximum() > 0; });
    bar.setValue(0);
    bar.setValue(bar.maximum());
    const auto* checkBox = shown.widgetAt<QAbstractButton>(8, check);
    ASSERT_TRUE(checkBox);
    EXPECT_TRUE(checkBox->isChecked()) << "as it was clicked";
    EXPECT_EQ(checkBox->accessibleName(), "Check, 8");
    shown.port.reloadData();
    EXPECT_FALSE(checkBox->isChecked()) << "as the program has it";
    shown.store("8", {0x28, 0x40000});
    shown.tap({right, deleteKey});
    EXPECT_TRUE(waitUntil([&] { return shown.stored("8").isNothing(); }));
}

TEST(CellTableTest, LoadsIconsWhileNothingElseIsToBeDone) {
    const ScratchFolders folders;
    folders.write("red.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'>"
                             "<rect width='9' height='9' fill='#ff0000'/></svg>");
    ShownTable shown(3);
    const auto colour = [&] {
        const auto cell = shown.table.visualRect(shown.table.model()->index(0, icon));
        return shown.table.viewport()->grab(cell).toImage().pixelColor(16, cell.height() / 2);
    };
    for (const auto* name : {"red.svg", "missing.svg"}) {
        shown.iconFile = folders.home() + "/" + name;
        shown.port.reloadData();
        EXPECT_NE(colour(), Qt::red);
        EXPECT_TRUE(waitUntil([&] { return colour() == Qt::red || !QFile::exists(shown.iconFile); }));
    }
}

} // namespace
} // namespace quorvane
