#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quorvane {

// The widgets of an interface file, as far as the program uses them. They belong to the interface file.

inline constexpr int stateOff = 0;
inline constexpr int stateOn = 1;

class Label {
public:
    virtual ~Label() = default;
    virtual void setStringValue(const std::string& text) = 0;
};

class Button {
public:
    virtual ~Button() = default;
    virtual void setTitle(const std::string& title) = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void setState(int state) = 0; ///< Of a button that stays down, or a check box.
    virtual int state() const = 0;
};

/// Of an option, outside of the tables.
class CheckBox {
public:
    virtual ~CheckBox() = default;
    virtual void setState(int state) = 0; ///< Calls nobody.

    /// Calls the handler with the new state whenever the user has clicked.
    virtual void whenClicked(std::function<void(int state)> handler) = 0;
};

class PopUpButton {
public:
    virtual ~PopUpButton() = default;

    /// Replaces the menu; its first item is the selected one.
    virtual void setItemTitles(const std::vector<std::string>& titles) = 0;

    /// Selects the first item of this title; nothing happens when there is none.
    virtual void setTitle(const std::string& title) = 0;
    virtual int indexOfSelectedItem() const = 0;
};

class TabView {
public:
    virtual ~TabView() = default;
    virtual void selectTabViewItemAtIndex(int index) = 0;
};

/// What the user clicks to see a tab.
class TabHeader {
public:
    virtual ~TabHeader() = default;
    virtual void setShaded(bool shaded) = 0; ///< Grey, three tenths opaque; else clear.
};

inline constexpr int noRow = -1;

class TableView {
public:
    virtual ~TableView() = default;

    /// Builds all cells anew. The selected row and the place scrolled to stay.
    virtual void reloadData() = 0;
    virtual int selectedRow() const = 0; ///< `noRow` when there is none.
    virtual void selectRow(int row) = 0; ///< That one and no other.
    virtual void deselectAll() = 0;

    /// From now on the user may drag rows to other places of the same table.
    virtual void registerForDraggedRows() = 0;
};

} // namespace quorvane
