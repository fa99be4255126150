#pragma once

#include <QCoreApplication>

namespace quorvane {

/// The text in the user's language; the key itself, which is the English text, when it has none. For texts of
/// the Linux desktop itself; the key is a literal, since the tables are kept complete by reading the sources.
inline QString localized(const char* key) {
    return QCoreApplication::translate("Quorvane", key);
}

} // namespace quorvane
