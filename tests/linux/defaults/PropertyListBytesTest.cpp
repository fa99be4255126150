#include "platform/linux/defaults/PropertyListBytes.h"

#include <QDir>
#include <gtest/gtest.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace quorvane {
namespace {

std::string repeated(std::string_view text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

QByteArray seed(const QString& name) {
    QFile file(QDir(QUORVANE_SEEDS).filePath(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(PropertyListBytesTest, SurvivesEverySeed) {
    const auto names = QDir(QUORVANE_SEEDS).entryList(QDir::Files);
    EXPECT_GE(names.size(), 8);
    for (const auto& name : names) {
        const auto bytes = seed(name);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                               static_cast<std::size_t>(bytes.size()));
    }
}

TEST(PropertyListBytesTest, ReadsBinaryListsAndByteOrderMarks) {
    for (const auto* name : {"rules.binary", "rules-byte-order-mark.xml"}) {
        const auto node = readPropertyList(seed(name).toStdString());
        ASSERT_TRUE(node) << name;
        EXPECT_EQ(propertyListOf(node.get())["autoInput"]["org.example.editor"]["id"],
                  PropertyList("xkb:ru"));
    }
}

TEST(PropertyListBytesTest, TurnsAwayWhatWouldExhaustTheParser) {
    constexpr int deep = 1'000'000;
    const auto arrays = repeated("<array>", deep);
    const auto closed = arrays + repeated("</array>", deep);
    const std::string hostile[] = {
        closed,
        "<plist>" + repeated("<dict><key>k</key>", deep),
        "<!-- </array> -->" + repeated("<array><!-- </array> -->", deep),
        "<!DOCTYPE plist [ <!-- ]>" + closed + "-->",
        "<!DOCTYPE plist \"<\" [ <!-- ]>" + closed + "-->",
        "<?xml \"?> <!-- \"?>" + closed + "-->",
        "<array a=\"<!--\">" + closed + "-->",
        repeated("<array><![CDATA[</array>]]>", deep),
        std::string("<plist><string>\0</string></plist>", 33),
    };
    for (const auto& bytes : hostile)
        EXPECT_FALSE(readPropertyList(bytes)) << bytes.substr(0, 40);
    EXPECT_TRUE(readPropertyList(repeated("<array>", 256) + repeated("</array>", 256)));
    EXPECT_FALSE(readPropertyList(repeated("<array>", 257) + repeated("</array>", 257)));
    for (const auto* name : {"cycle.binary", "bomb.binary"})
        EXPECT_FALSE(readPropertyList(seed(name).toStdString())) << name;
}

} // namespace
} // namespace quorvane
