#include "platform/linux/preferences/QtPreferences.h"

#include <QScrollArea>

#include "platform/linux/preferences/QtOutlets.h"
#include "platform/linux/preferences/QtPreferencesWindow.h"
#include "platform/linux/preferences/QtTableView.h"
#include "platform/linux/preferences/ShortcutKeyboard.h"
#include "ui_Preferences.h"

namespace quorvane {
namespace {

/// On a screen that is too small for a page, it is scrolled.
void makePagesScroll(QStackedWidget& pages) {
    for (int index = 0; index < pages.count(); ++index) {
        auto* page = pages.widget(index);
        auto* area = new QScrollArea(&pages);
        area->setFrameShape(QFrame::NoFrame);
        area->setWidgetResizable(true);
        area->setFocusPolicy(Qt::NoFocus); // What is in it has the focus, and is scrolled to.
        pages.removeWidget(page);
        area->setWidget(page);
        pages.insertWidget(index, area);
    }
    pages.setCurrentIndex(0);
}

} // namespace

struct QtPreferences::Widgets {
    explicit Widgets(const Neighbours& neighbours);

    void showNotices(Notices& notices);

    ShortcutKeyboard keyboard;
    QtPreferencesWindow window;
    Ui::Preferences form;
    QtTabView tabView;
    QtLabel version, switchTimes;
    QtButton removeByApplication, removeByLocation, setUp;
    QtPopUpButton defaultInput;
    QtCheckBox autoStartAtLogin, enableTipOfState, followWindow, hiddenIconInStatusBar,
        enableForceEnglishBrowserAddress;
    QtTableView applications, locations, shortcuts;
    Subscription noticeChanges;
};

QtPreferences::Widgets::Widgets(const Neighbours& neighbours)
    : keyboard(neighbours.keyboard, neighbours.host)
    , window(neighbours.host, neighbours.notifications)
    , form([this] {
        Ui::Preferences made;
        made.setupUi(&window);
        return made;
    }())
    , tabView(*form.tabView)
    , version(*form.version)
    , switchTimes(*form.switchTimes)
    , removeByApplication(*form.removeByApplicationButton)
    , removeByLocation(*form.removeByLocationButton)
    , setUp(*form.StartOrStopSetUpButton)
    , defaultInput(*form.buttonOfDefaultInpust)
    , autoStartAtLogin(*form.autoStartAtLogin)
    , enableTipOfState(*form.enableTipOfState)
    , followWindow(*form.followWindow)
    , hiddenIconInStatusBar(*form.hiddenIconInStatusBar)
    , enableForceEnglishBrowserAddress(*form.enableForceEnglishBrowserAddress)
    , applications(*form.autoInputByApplicationTableView)
    , locations(*form.autoInputByLocationTableView)
    , shortcuts(*form.shortcutTableView) {
    form.shortcutTableView->setKeyboard(keyboard);
    showNotices(neighbours.notices);
    if (!neighbours.sessionNotice.empty()) {
        form.autoInputByApplicationTableView->setProperty("emptyText",
                                                          QString::fromStdString(neighbours.sessionNotice));
    }
    makePagesScroll(*form.tabView);
    window.dressUp();
}

void QtPreferences::Widgets::showNotices(Notices& notices) {
    const auto show = [this, &notices] {
        form.noticeStrip->setText(QString::fromStdString(notices.text()));
        const auto remedy = notices.remedy();
        form.noticeStrip->setRemedy(QString::fromStdString(remedy.name), remedy.apply);
    };
    noticeChanges = notices.changed.connect(show);
    show();
}

QtPreferences::QtPreferences(const Neighbours& neighbours)
    : widgets_(std::make_unique<Widgets>(neighbours)) {}

QtPreferences::~QtPreferences() = default;

PreferencesOutlets QtPreferences::outlets() {
    auto& form = widgets_->form;
    return {.window = widgets_->window,
            .tabView = widgets_->tabView,
            .Rules1 = *form.Rules1,
            .Preference1 = *form.Preference1,
            .Learn1 = *form.Learn1,
            .Contactus1 = *form.Contactus1,
            .FreeApps1 = *form.FreeApps1,
            .version = widgets_->version,
            .switchTimes = widgets_->switchTimes,
            .removeByApplicationButton = widgets_->removeByApplication,
            .removeByLocationButton = widgets_->removeByLocation,
            .StartOrStopSetUpButton = widgets_->setUp,
            .autoInputByApplicationTableView = widgets_->applications,
            .autoInputByLocationTableView = widgets_->locations,
            .shortcutTableView = widgets_->shortcuts,
            .buttonOfDefaultInpust = widgets_->defaultInput,
            .options = {.autoStartAtLogin = widgets_->autoStartAtLogin,
                        .enableTipOfState = widgets_->enableTipOfState,
                        .followWindow = widgets_->followWindow,
                        .hiddenIconInStatusBar = widgets_->hiddenIconInStatusBar,
                        .enableForceEnglishBrowserAddress = widgets_->enableForceEnglishBrowserAddress}};
}

void QtPreferences::connect(PreferencesActions& actions, TableSource& source) {
    auto& form = widgets_->form;
    const auto calls = [&actions](auto* button, void (PreferencesActions::*action)()) {
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [&actions, action] { (actions.*action)(); });
    };
    calls(form.Rules1, &PreferencesActions::Rules);
    calls(form.Preference1, &PreferencesActions::Preference);
    calls(form.Learn1, &PreferencesActions::Learn);
    calls(form.FreeApps1, &PreferencesActions::FreeApps);
    calls(form.Contactus1, &PreferencesActions::Contactus);
    calls(form.addApplicationButton, &PreferencesActions::AddApplication);
    calls(form.removeByApplicationButton, &PreferencesActions::RemoveApplication);
    calls(form.removeByLocationButton, &PreferencesActions::RemoveLocation);
    calls(form.StartOrStopSetUpButton, &PreferencesActions::startOrStopSetUpButtonClick);
    QObject::connect(form.buttonOfDefaultInpust, &QComboBox::activated, form.buttonOfDefaultInpust,
                     [&actions] { actions.defaultInputChanged(); });
    for (auto* button : widgets_->window.findChildren<QAbstractButton*>()) {
        const auto link = button->property("linkAction").toString().toStdString();
        if (!link.empty())
            QObject::connect(button, &QAbstractButton::clicked, button,
                             [&actions, link] { actions.openLink(link); });
    }
    widgets_->applications.connect(source, [&actions] { actions.mouseDownByApplication(); });
    widgets_->locations.connect(source, [&actions] { actions.mouseDownByLocation(); });
    widgets_->shortcuts.connect(source, [] {});
}

} // namespace quorvane
