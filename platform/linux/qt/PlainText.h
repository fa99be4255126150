#pragma once

#include <QString>

namespace quorvane {

// Qt takes a text for HTML when it looks like it. Names of programs, places and input sources never are.

/// What a tool tip of Qt's shows as this text.
QString toolTipOf(const QString& text);

/// The text with what could be taken for a tag replaced by what looks like it: for places where nobody knows
/// who will show it.
QString withoutMarkup(QString text);

} // namespace quorvane
