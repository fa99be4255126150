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
    auto names = QDir(QStringLiteral(":/")).entryList(QDir::Dirs);
    // Not as a pattern: those are regular expressions to Qt, and their library would be loaded for this
    // alone.
    names.removeIf([](const QString& name) { return !name.endsWith(folderSuffix); });
    for (auto& name : names)
        name.chop(folderSuffix.size());
    return names;
}

/// Of a language, or of what it says differently on this desktop.
StringTable tableOf(const QString& folder) {
    QFile file(":/" + folder + folderSuffix + "/Localizable.strings");
    if (!file.open(QIODevice::ReadOnly)) return {};
    StringTable table(QString::fromUtf8(file.readAll()));
    if (const auto line = table.faultyLine())
        logLine("the texts in " + folder.toStdString() + " are damaged in line " + std::to_string(*line));
    return table;
}

/// Qt names Chinese by its regions.
QLocale localeOfQt(const QString& language) {
    if (language == QStringLiteral("zh-Hans")) return {QLocale::Chinese, QLocale::China};
    if (language == QStringLiteral("zh-Hant")) return {QLocale::Chinese, QLocale::Taiwan};
    return QLocale(language);
}

/// What was installed last is asked first.
void install(const QString& folder) {
    auto* texts = new StringTableTranslator(tableOf(folder));
    texts->setParent(qApp);
    QCoreApplication::installTranslator(texts);
}

/// English texts are their own keys, except where this desktop says something else.
void installThisDesktopsTexts(const QString& language) {
    install(QStringLiteral("linux/") + (language.isEmpty() ? QStringLiteral("en") : language));
}

void installTexts(const QString& language) {
    auto textsOfQt = std::make_unique<QTranslator>(qApp);
    if (textsOfQt->load(localeOfQt(language), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(textsOfQt.release());
    install(language);
}

} // namespace

QString StringTableTranslator::translate(const char* /*context*/, const char* sourceText,
                                         const char* /*disambiguation*/, int /*n*/) const {
    return table_.value(QString::fromUtf8(sourceText));
}

void installTranslations() {
    const auto language = languageFor(QLocale::system().uiLanguages(), availableLanguages());
    if (!language.isEmpty()) installTexts(language);
    installThisDesktopsTexts(language);
}

} // namespace quorvane
