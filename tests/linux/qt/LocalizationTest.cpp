#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include "platform/linux/localization/Languages.h"
#include "platform/linux/localization/Translations.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using Keys = std::set<QString>;

const fs::path root(QUORVANE_SOURCE_DIR);

QString contents(const fs::path& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path;
    return QString::fromUtf8(file.readAll());
}

/// Adds the literals that calls in a folder's sources look up, of C++ or of Objective-C. Every call must have
/// one.
void addKeysOfSources(const fs::path& folder, Keys& keys) {
    static const QRegularExpression call(R"(\blocalized(?:String)?\(\s*((?:@?"(?:[^"\\]|\\.)*"\s*)+)?)");
    static const QRegularExpression declaration(
        R"(\blocalized(?:String)?\((?:const char\*|std::string_view|NSString\*(?: _Nonnull)?) key\))");
    static const QRegularExpression start(R"(^@?")"), seam(R"("\s*@?")");
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const auto extension = entry.path().extension();
        if (extension != ".cpp" && extension != ".h" && extension != ".mm") continue;
        const auto text = contents(entry.path()).remove(declaration);
        for (const auto& match : call.globalMatch(text)) {
            auto key = match.captured(1).trimmed().remove(seam).remove(start);
            EXPECT_GT(key.size(), 1) << entry << text.mid(match.capturedStart(), 80).toStdString();
            key.chop(1);
            keys.insert(key.replace("\\n", "\n").replace("\\\"", "\""));
        }
    }
}

struct InterfaceFile {
    Keys texts;
    Keys names; ///< Not translated: mostly names that the program knows.
};

InterfaceFile interfaceFile() {
    InterfaceFile file;
    QXmlStreamReader xml(contents(root / "resources/Preferences.ui"));
    bool isListTranslated = true;
    while (!xml.atEnd()) {
        xml.readNext();
        const bool isTranslated = xml.attributes().value("notr") != u"true";
        if (xml.name() == u"stringlist") isListTranslated = isTranslated || xml.isEndElement();
        if (!xml.isStartElement() || xml.name() != u"string") continue;
        const auto text = xml.readElementText();
        if (!text.isEmpty()) (isTranslated && isListTranslated ? file.texts : file.names).insert(text);
    }
    EXPECT_FALSE(xml.hasError());
    return file;
}

const Keys& wanted() {
    static const auto keys = [] {
        auto all = interfaceFile().texts;
        for (const auto* folder :
             {"app", "indicator", "input", "platform", "preferences", "settings", "shortcuts", "switching"})
            addKeysOfSources(root / folder, all);
        return all;
    }();
    return keys;
}

QStringList found(const QString& text, const char* pattern) {
    QStringList parts;
    for (const auto& match : QRegularExpression(pattern).globalMatch(text))
        parts.append(match.captured());
    parts.sort();
    return parts;
}

StringTable tableIn(const fs::path& folder) {
    const auto path = folder / "Localizable.strings";
    StringTable table(contents(path));
    EXPECT_EQ(table.faultyLine(), std::nullopt) << path;
    return table;
}

TEST(StringTables, HaveEveryTextOnceAndAsItsKeyIs) {
    ASSERT_GT(wanted().size(), 10U);
    for (const std::string language : {"en", "de", "es", "fr", "ja", "ko", "ru", "zh-Hans", "zh-Hant"}) {
        SCOPED_TRACE(language);
        const auto ofLinux = tableIn(root / "resources/linux" / (language + ".lproj"));
        ASSERT_EQ(ofLinux.keys().size(), 1);
        const auto& reminder = ofLinux.keys().first();
        EXPECT_TRUE(wanted().contains(reminder));
        EXPECT_EQ(found(ofLinux.value(reminder), "Quorvane"), QStringList("Quorvane"));
        EXPECT_FALSE(ofLinux.value(reminder).contains('>')) << "the way through another system's settings";

        if (language == "en") continue; // Its texts are the keys.
        const auto table = tableIn(root / "resources" / (language + ".lproj"));
        const Keys keys(table.keys().begin(), table.keys().end());
        EXPECT_EQ(qsizetype(keys.size()), table.keys().size()) << "a key is there twice";
        for (const auto& key : keys)
            EXPECT_TRUE(wanted().contains(key)) << "not in the program: " << key.toStdString();
        for (const auto& key : wanted()) {
            const auto value = table.value(key);
            EXPECT_FALSE(value.trimmed().isEmpty()) << "missing: " << key.toStdString();
            for (const auto* alike : {R"(%(\d+\$)?[@\d])", R"(^\s+|\s+$)", "Quorvane|Tandrel", R"(\n)"})
                EXPECT_EQ(found(value, alike), found(key, alike)) << key.toStdString();
        }
    }
}

TEST(PreferencesWindows, AreTheSameOnEveryDesktop) {
    const auto macFolder = root / "platform/macos/preferences";
    const auto onLinux = interfaceFile();
    Keys onMac;
    addKeysOfSources(macFolder, onMac);
    Keys onOne;
    std::ranges::set_symmetric_difference(onLinux.texts, onMac, std::inserter(onOne, onOne.end()));
    EXPECT_TRUE(onOne.empty()) << "only on one: " << onOne.begin()->toStdString();
    QString macSources;
    for (const auto& entry : fs::directory_iterator(macFolder))
        macSources += contents(entry.path());
    static const QRegularExpression settingOrLinkOrColumn("^[A-Za-z ]+$");
    for (const auto& name : onLinux.names)
        EXPECT_TRUE(!settingOrLinkOrColumn.match(name).hasMatch() || macSources.contains('"' + name + '"'))
            << "only on Linux: " << name.toStdString();
}

TEST(StringTable, IsReadUpToTheFirstFault) {
    const std::tuple<const char*, const char*, std::optional<int>> tables[] = {
        {"/* c */ \"k\" = \"a\\n\\\"\\\\\\U00e9\\Ud83d\\Ude00\";", "a\n\"\\é😀", {}},
        {"// c\nk.1=x;\nk = bare-word ; // end", "bare-word", {}},
        {"k=a; k=\"b\";", "b", {}},
        {"", "", {}},
        {"k=\"a\";\n\"b\" \"c\";", "a", 2},
        {"k=a;\n\nb=\"never ends;\n\n", "a", 3},
        {"k=a;\n/* never ends", "a", 2},
        {"k=\"a\\", "", 1},
        {"k=\"\\Uzz\"", "", 1},
        {"\xff\"=;", "", 1},
    };
    for (const auto& [text, value, line] : tables) {
        const StringTable table(QString::fromUtf8(text));
        EXPECT_EQ(table.value("k"), QString::fromUtf8(value)) << text;
        EXPECT_EQ(table.faultyLine(), line) << text;
    }
}

TEST(Languages, AreTheFirstOfTheUsersThatThereIs) {
    // clang-format off
    const std::pair<QStringList, const char*> cases[] = {
        {{"de-AT"}, "de"}, {{"zh-CN"}, "zh-Hans"}, {{"zh_SG", "zh"}, "zh-Hans"}, {{"zh"}, "zh-Hans"},
        {{"zh-TW"}, "zh-Hant"}, {{"zh-HK"}, "zh-Hant"}, {{"zh-Hant-CN"}, "zh-Hant"},
        {{"zh-Hans-HK", "zh"}, "zh-Hans"}, {{"it-IT", "de"}, "de"}, {{"en-GB", "de"}, ""}, {{"C"}, ""},
        {{"it"}, ""}, {{}, ""}};
    // clang-format on
    for (const auto& [users, wanted] : cases)
        EXPECT_EQ(languageFor(users, {"de", "zh-Hans", "zh-Hant"}), wanted) << users.join(' ').toStdString();
}

} // namespace
} // namespace quorvane
