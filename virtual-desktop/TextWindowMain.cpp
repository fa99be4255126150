// A window with a text field, in Qt. Its argument is the window's title. Prints "shown WINDOW" with the
// window's number when it can be typed in, and "typed TEXT" after each change of the text; ends when its
// input does.

#include <cstdio>

#include <QApplication>
#include <QLineEdit>
#include <QSocketNotifier>
#include <unistd.h>

namespace {

class Field : public QLineEdit {
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        std::printf("shown %llu\n", static_cast<unsigned long long>(winId()));
        std::fflush(stdout);
    }
};

} // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    QApplication::setDesktopFileName(arguments[count - 1]); // The application ID on Wayland.
    Field field;
    field.setWindowTitle(arguments[count - 1]);
    QObject::connect(&field, &QLineEdit::textChanged, [](const QString& text) {
        std::printf("typed %s\n", text.toUtf8().constData());
        std::fflush(stdout);
    });
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [] {
        char byte = 0;
        if (read(STDIN_FILENO, &byte, 1) <= 0) QApplication::quit();
    });
    auto font = field.font();
    font.setPointSize(14); // To be read in pictures.
    field.setFont(font);
    field.resize(300, 60);
    field.show();
    return QApplication::exec();
}
