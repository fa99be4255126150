#pragma once

#include <set>

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QComboBox>
#include <gtest/gtest.h>

#include "platform/linux/preferences/QtTableView.h"
#include "platform/linux/qt/ApplicationIcon.h"
#include "platform/linux/x11/keyboard/X11HotKeys.h"
#include "platform/linux/x11/keyboard/X11PrintedKeyboard.h"
#include "platform/linux/x11/windows/StackedWindow.h"
#include "platform/linux/x11/windows/X11WindowHost.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "preferences/ShortcutTable.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XClient.h"

namespace quorvane {

using Keys = std::vector<std::uint8_t>;
using Log = std::vector<std::string>;
enum Column { icon, name, input, check, shortcut };

/// A table with every kind of cell, on the screen and in front. The program's own is behind the shortcuts;
/// of the rest only notes are taken.
struct ShownTable : TableSource {
    explicit ShownTable(int rows) : rowCount(rows) {
        for (int row = 0; row < rows; ++row)
            lists.inputs.arrOfInputInfo.push_back({std::to_string(row), {}});
        table.setColumnIdentifiers({"icon", "name", "input", "check", "shortcut"});
        table.setColumnTitles({"", "Name", "Select Input", "Check", "Shortcut"});
        table.setKeyboard(keyboard);
        port.connect(*this, [this] { ++actions; });
        table.setGeometry(100, 100, 900, 300);
        table.show();
        // Its place is known when the window manager has given it a frame.
        waitUntil([this] {
            const auto bounds = stackedWindow(*x, static_cast<xcb_window_t>(table.winId())).bounds;
            const auto corner = table.mapToGlobal(QPoint());
            return table.isActiveWindow() && bounds.x == corner.x() && bounds.y == corner.y();
        });
        EXPECT_TRUE(waitUntil([] {
            return !QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
        })) << "it never comes to rest";
    }

    QPoint middleOf(int row, Column column) {
        const auto cell = table.visualRect(table.model()->index(row, column));
        return table.viewport()->mapToGlobal(cell.center());
    }
    PropertyList stored(const std::string& row) { return standard.objectForKey(key::shortcutOfInput)[row]; }
    void store(const std::string& row, const InputShortcut& shortcut) {
        setShortcut(standard, row, shortcut.record());
        port.reloadData();
    }
    void moveTo(const QPoint& place) { user.moveTo(place.x(), place.y()); }
    void click(const QPoint& place) {
        moveTo(place);
        user.click(1);
    }
    void tap(const Keys& keys) {
        for (const auto key : keys)
            user.pressTogether({key});
    }
    bool waitFor(const Log& expected) {
        return waitUntil([&] { return log == expected; });
    }
    template <class Widget>
    Widget* widgetAt(int row, Column column) {
        return dynamic_cast<Widget*>(
            table.viewport()->childAt(table.visualRect(table.model()->index(row, column)).center()));
    }

    int numberOfRowsInTableView(const TableView& /*table*/) const override { return rowCount; }
    CellView viewForTableColumn(const TableView& /*table*/, std::string_view column, int row) override {
        asked.insert(row);
        const auto number = std::to_string(row);
        if (column == "icon")
            return {.parts = {ImageViewPart{{6, 3, 20, 20}, std::make_shared<ApplicationIcon>(iconFile)}}};
        if (column == "name")
            return {.parts = {TextFieldPart{
                        .stringValue = row == 7 ? "Zebra" : number, .tag = row, .isEditable = true}}};
        if (column == "check")
            return {.parts = {CheckBoxPart{{}, 0, row, [this](int tag, int state) {
                                               note("check", tag, std::to_string(state));
                                           }}}};
        if (column == "input")
            return {.parts = {PopUpButtonPart{
                        .itemTitles = {"German", "Greek", "German"},
                        .tag = row,
                        .action = [this](const std::string& title) { note("chose", -1, title); },
                        .willPopUp = [this](int tag) { note("opens", tag); }}}};
        return shortcuts.tableViewForShortcut("ShortCut", row);
    }
    double heightOfRow(const TableView& /*table*/, int /*row*/) const override { return 25; }
    bool textShouldEndEditing(const TextFieldPart& field, const std::string& stringValue) override {
        note("renames", field.tag, stringValue);
        port.reloadData();
        return true;
    }
    bool acceptDrop(const TableView& to, const TableView* source, int draggedRow, int row) override {
        EXPECT_TRUE(&to == &port && source == &port);
        note("drops", draggedRow, std::to_string(row));
        return true;
    }

    void note(std::string what, int row, const std::string& value = {}) {
        if (row >= 0) what.append(" ").append(std::to_string(row));
        log.push_back(value.empty() ? what : what.append(" ").append(value));
    }

    int rowCount;
    QString iconFile;
    int actions = 0;
    Log log;
    std::set<int> asked; ///< The rows that the table has wanted to know.
    XClient user;
    std::unique_ptr<XConnection> x = XConnection::open();
    X11PrintedKeyboard printed{*x};
    X11WindowHost host{*x};
    ShortcutKeyboard keyboard{printed, host};
    CellTable table;
    QtTableView port{table};
    Journal journal;
    SimulatedUserDefaults defaults{journal};
    UserDefaults& standard = defaults.standardUserDefaults();
    X11HotKeys hotKeys{*x};
    PTHotKeyCenter hotKeyCenter{hotKeys};
    PreferencesLists lists;
    ShortcutTable shortcuts{standard, hotKeyCenter, lists, port, [](const auto& /*hotKey*/) {}};
};

} // namespace quorvane
