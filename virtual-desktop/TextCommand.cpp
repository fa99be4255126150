#include "virtual-desktop/TextCommand.h"

#include <QFile>

namespace quorvane {
namespace {

// Not by lines: IBus lets the key that ends one overtake the text before it. The output is the terminal's.
const QStringList inTerminal{"-e", "sh", "-c",
                             "stty -icanon; exec > /proc/$PPID/fd/1; echo 'shown '; exec cat"};

} // namespace

TextCommand::TextCommand(Toolkit toolkit, const QString& home, const QString& name) {
    switch (toolkit) {
    case Toolkit::qt:
        program = home + "/" + name; // Its name becomes the class.
        QFile::link(QUORVANE_TEXT_WINDOW, program);
        arguments = QStringList{name};
        break;
    case Toolkit::gtk:
        program = "zenity";
        arguments = {"--entry", "--class=" + name, "--title=" + name};
        break;
    case Toolkit::xim:
        program = "xterm";
        arguments = QStringList{"-u8", "-T", name, "-class", name} + inTerminal;
        break;
    case Toolkit::foot:
        program = "foot";
        arguments = QStringList{"--title", name, "--app-id", name} + inTerminal;
        break;
    }
}

QString TextCommand::typed(Toolkit toolkit, QString output) {
    if (toolkit == Toolkit::qt)
        output = output.contains("typed ") ? output.section("typed ", -1).section('\n', 0, 0) : QString();
    return output.remove("shown ").remove(' ').remove('\n').remove('\r');
}

} // namespace quorvane
