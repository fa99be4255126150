#include "platform/linux/localization/Languages.h"

namespace quorvane {
namespace {

QString tableNameOf(const QString& language) {
    const auto parts = QString(language).replace('_', '-').split('-');
    if (parts.first().compare(QStringLiteral("zh"), Qt::CaseInsensitive) != 0) return parts.first().toLower();
    const auto has = [&](const char* part) {
        return parts.contains(QString::fromLatin1(part), Qt::CaseInsensitive);
    };
    const bool isTraditional = has("Hant") || (!has("Hans") && (has("TW") || has("HK") || has("MO")));
    return isTraditional ? QStringLiteral("zh-Hant") : QStringLiteral("zh-Hans");
}

} // namespace

QString languageFor(const QStringList& usersLanguages, const QStringList& available) {
    for (const auto& language : usersLanguages) {
        auto name = tableNameOf(language);
        if (name == QStringLiteral("en") || name == QStringLiteral("c")) return {};
        if (available.contains(name)) return name;
    }
    return {};
}

} // namespace quorvane
