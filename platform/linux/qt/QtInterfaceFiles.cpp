#include "platform/linux/qt/QtInterfaceFiles.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

#include "platform/linux/qt/QtIndicatorWindow.h"

namespace quorvane {
namespace {

bool hasDarkWindows() {
    constexpr int middle = 128;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middle;
}

} // namespace

/// The window that is ordered in and out so that a selection reaches the front program. A layout
/// reaches every program at once, and a real window would take the focus for a moment: so there is
/// none.
class QtInterfaceFiles::NoWindow : public Window {
public:
    std::string title() const override { return {}; }
    void setStyle(const WindowStyle& /*style*/) override {}
    void setLevel(int /*level*/) override {}
    void setCollectionBehavior(unsigned /*behavior*/) override {}
    void setMovableByWindowBackground(bool /*movable*/) override {}
    void setFrameOrigin(Point /*origin*/) override {}
    void makeKeyAndOrderFront() override {}
    void orderOut() override {}
};

struct QtInterfaceFiles::Windows : QObject {
    explicit Windows(IndicatorSurface& indicator) : inputIconWindow(indicator) {
        inputIconWindow.setDark(hasDarkWindows());
        qGuiApp->installEventFilter(this);
    }

    bool eventFilter(QObject* /*receiver*/, QEvent* event) override {
        if (event->type() == QEvent::ApplicationPaletteChange) inputIconWindow.setDark(hasDarkWindows());
        return false;
    }

    NoWindow window;
    QtIndicatorWindow inputIconWindow;
};

QtInterfaceFiles::QtInterfaceFiles(const SessionParts& session, NotificationCenter& notifications)
    : neighbours_{session.windowHost, session.printedKeyboard, notifications, notices_, session.notice}
    , windows_(std::make_unique<Windows>(session.indicator)) {}

QtInterfaceFiles::~QtInterfaceFiles() = default;

MainInterface QtInterfaceFiles::mainInterface() {
    return {windows_->window, windows_->inputIconWindow, windows_->inputIconWindow.iconView(),
            windows_->inputIconWindow.iconBox()};
}

std::unique_ptr<PreferencesInterface> QtInterfaceFiles::loadPreferences() {
    return std::make_unique<QtPreferences>(neighbours_);
}

void QtInterfaceFiles::raiseIndicator() {
    windows_->inputIconWindow.raise();
}

} // namespace quorvane
