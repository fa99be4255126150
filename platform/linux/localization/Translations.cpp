#include "platform/linux/localization/Translations.h"

#include <memory>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>

#include "platform/linux/Log.h"
#include "platform/linux/localization/Languages.h"

namespace quorvane {
namespace {

const QString folderSuffix = QStringLiteral(".lproj");

QStringList availableLanguages() {
    auto names = QDir(QStringLiteral(":/")).entryList({"*" + folderSuffix}, QDir::Dirs);
    for (auto& name : names)
        name.chop(folderSuffix.size());
    return names;
}

StringTable tableOf(const QString& language) {
    QFile file(":/" + language + folderSuffix + "/Localizable.strings");
    if (!file.open(QIODevice::ReadOnly)) return {};
    StringTable table(QString::fromUtf8(file.readAll()));
    if (const auto line = table.faultyLine())
        logLine("the texts in " + language.toStdString() + " are damaged in line " + std::to_string(*line));
    return table;
}

/// Qt names Chinese by its regions.
QLocale localeOfQt(const QString& language) {
    if (language == QStringLiteral("zh-Hans")) return {QLocale::Chinese, QLocale::China};
    if (language == QStringLiteral("zh-Hant")) return {QLocale::Chinese, QLocale::Taiwan};
    return QLocale(language);
}

} // namespace

QString StringTableTranslator::translate(const char* /*context*/, const char* sourceText,
                                         const char* /*disambiguation*/, int /*n*/) const {
    return table_.value(QString::fromUtf8(sourceText));
}

void installTranslations() {
    const auto language = languageFor(QLocale::system().uiLanguages(), availableLanguages());
    if (language.isEmpty()) return;
    auto textsOfQt = std::make_unique<QTranslator>(qApp);
    if (textsOfQt->load(localeOfQt(language), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(textsOfQt.release());
    // What was installed last is asked first.
    auto* texts = new StringTableTranslator(tableOf(language));
    texts->setParent(qApp);
    QCoreApplication::installTranslator(texts);
}

} // namespace quorvane
