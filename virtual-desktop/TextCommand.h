#pragma once

#include <QStringList>

namespace quorvane {

/// How programs that somebody types into are started, and tell what has arrived, in the way of their toolkit.
struct TextCommand {
    enum class Toolkit { qt, gtk, xim, foot };

    /// For a window of that title, class or application ID.
    TextCommand(Toolkit toolkit, const QString& home, const QString& name);

    static QString typed(Toolkit toolkit, QString output); ///< The text in what it wrote, without spaces.

    QString program;
    QStringList arguments;
};

} // namespace quorvane
