// A window that takes the keyboard as the recorder of hot keys does. Prints "shown" when it has the focus,
// and the hardware's number of each key that is pressed. Ends when its input does.

#include <cstdio>
#include <string>

#include <QApplication>
#include <QKeyEvent>
#include <QSocketNotifier>
#include <QTimer>
#include <unistd.h>

#include "platform/linux/session/ToolkitWindowHost.h"

namespace {

class Window : public QWidget {
public:
    Window() {
        setWindowTitle("recorder");
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void focusInEvent(QFocusEvent* /*event*/) override {
        taken_ = host_.takeKeyboard(*this);
        // The compositor has heard it by the time that it has shown something else.
        QTimer::singleShot(0, this, [] { tell("shown"); });
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Control && event->key() != Qt::Key_Alt) taken_.end(); // It is recorded.
        tell(std::to_string(event->nativeScanCode()).c_str());
    }

private:
    static void tell(const char* what) {
        std::puts(what);
        std::fflush(stdout);
    }

    quorvane::ToolkitWindowHost host_;
    quorvane::Subscription taken_;
};

} // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    Window window;
    window.resize(300, 60);
    window.show();
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [] {
        char byte = 0;
        if (read(STDIN_FILENO, &byte, 1) <= 0) QApplication::quit();
    });
    return QApplication::exec();
}
