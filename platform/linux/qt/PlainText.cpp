#include "platform/linux/qt/PlainText.h"

#include <QTextDocument>

namespace quorvane {

QString toolTipOf(const QString& text) {
    // As it stands wherever it can, since HTML is wrapped into lines.
    if (!Qt::mightBeRichText(text)) return text;
    return "<span style='white-space:pre'>" + text.toHtmlEscaped() + "</span>";
}

QString withoutMarkup(QString text) {
    if (!Qt::mightBeRichText(text)) return text;
    return text.replace('<', QStringLiteral("\u2039")).replace('>', QStringLiteral("\u203A"));
}

} // namespace quorvane
