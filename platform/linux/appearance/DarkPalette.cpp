#include "platform/linux/appearance/DarkPalette.h"

namespace quorvane {

QPalette darkPalette() {
    const QColor ground(52, 54, 59);
    const QColor text(240, 240, 242);
    const QColor faintText(152, 156, 163);
    QPalette palette(text, QColor(66, 69, 75), QColor(92, 96, 103), QColor(27, 28, 31), QColor(74, 78, 84),
                     text, Qt::white, QColor(30, 31, 34), ground);
    palette.setColor(QPalette::AlternateBase, QColor(38, 40, 43));
    palette.setColor(QPalette::Midlight, QColor(78, 82, 88));
    palette.setColor(QPalette::Shadow, QColor(12, 12, 14));
    palette.setColor(QPalette::Highlight, QColor(38, 92, 168));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(122, 180, 255));
    palette.setColor(QPalette::LinkVisited, QColor(200, 165, 250));
    palette.setColor(QPalette::ToolTipBase, QColor(70, 74, 80));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, faintText);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, faintText);
    palette.setColor(QPalette::Disabled, QPalette::Base, ground);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(64, 68, 74));
    return palette;
}

QPalette darkCheckBoxPalette() {
    auto palette = darkPalette();
    palette.setColor(QPalette::Window, QColor(176, 180, 188));
    return palette;
}

} // namespace quorvane
