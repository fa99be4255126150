#pragma once

#include <functional>
#include <utility>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QStackedWidget>

#include "platform/Widgets.h"

namespace quorvane {

// The widget ports on Qt's widgets, which must outlive them.

class QtLabel : public Label {
public:
    explicit QtLabel(QLabel& label) : label_(label) {}

    void setStringValue(const std::string& text) override { label_.setText(QString::fromStdString(text)); }

private:
    QLabel& label_;
};

class QtButton : public Button {
public:
    explicit QtButton(QAbstractButton& button) : button_(button) {}

    void setTitle(const std::string& title) override { button_.setText(QString::fromStdString(title)); }
    void setEnabled(bool enabled) override { button_.setEnabled(enabled); }
    void setState(int state) override { button_.setChecked(state == stateOn); }
    int state() const override { return button_.isChecked() ? stateOn : stateOff; }

private:
    QAbstractButton& button_;
};

class QtCheckBox : public CheckBox {
public:
    explicit QtCheckBox(QCheckBox& checkBox) : checkBox_(checkBox) {}

    void setState(int state) override { checkBox_.setChecked(state == stateOn); }
    void whenClicked(std::function<void(int state)> handler) override {
        // Only what the user does is "clicked".
        QObject::connect(&checkBox_, &QCheckBox::clicked, &checkBox_,
                         [handler = std::move(handler)](bool isOn) { handler(isOn ? stateOn : stateOff); });
    }

private:
    QCheckBox& checkBox_;
};

class QtPopUpButton : public PopUpButton {
public:
    explicit QtPopUpButton(QComboBox& comboBox) : comboBox_(comboBox) {}

    void setItemTitles(const std::vector<std::string>& titles) override {
        comboBox_.clear();
        for (const auto& title : titles)
            comboBox_.addItem(QString::fromStdString(title));
    }
    void setTitle(const std::string& title) override {
        const int item =
            comboBox_.findText(QString::fromStdString(title), Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (item >= 0) comboBox_.setCurrentIndex(item);
    }
    int indexOfSelectedItem() const override { return comboBox_.currentIndex(); }

private:
    QComboBox& comboBox_;
};

class QtTabView : public TabView {
public:
    explicit QtTabView(QStackedWidget& pages) : pages_(pages) {}

    void selectTabViewItemAtIndex(int index) override { pages_.setCurrentIndex(index); }

private:
    QStackedWidget& pages_;
};

} // namespace quorvane
