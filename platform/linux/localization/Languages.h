#pragma once

#include <QString>
#include <QStringList>

namespace quorvane {

/// The first of the user's languages, best first, that is among the available ones or is English, of which
/// the texts' keys are. Languages are named like "de", "de-AT" and "zh-Hant"; Chinese is written in the
/// script that is usual in the region. Empty for English, and when there is none.
QString languageFor(const QStringList& usersLanguages, const QStringList& available);

} // namespace quorvane
