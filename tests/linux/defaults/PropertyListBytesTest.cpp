#include "platform/linux/defaults/PropertyListBytes.h"

#include <QDir>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

std::string repeated(const QByteArray& text, int count) {
    return text.repeated(count).toStdString();
}

std::string seed(const QString& name) {
    QFile file(QDir(QUORVANE_SEEDS).filePath(name));
    return file.open(QFile::ReadOnly) ? file.readAll().toStdString() : "";
}

TEST(PropertyListBytesTest, ReadsBinaryListsAndByteOrderMarks) {
    for (const auto* name : {"rules.binary", "rules-byte-order-mark.xml"}) {
        const auto node = readPropertyList(seed(name));
        ASSERT_TRUE(node) << name;
        const auto rules = propertyListOf(node.get())["autoInput"];
        EXPECT_EQ(rules["org.example.editor"]["id"], PropertyList("xkb:ru"));
    }
}

/// A binary list of arrays, each of which has the next one twice.
std::string doubling(int levels) {
    std::string objects = "bplist00", offsets;
    for (int level = 0; level <= levels; ++level) {
        offsets += static_cast<char>(objects.size());
        const auto next = static_cast<char>(level + 1);
        objects += level < levels ? std::string{'\xa2', next, next} : std::string{'\x10', '\x01'};
    }
    const auto number = [](std::size_t value) { return std::string(7, '\0') + static_cast<char>(value); };
    const auto trailer =
        std::string(6, '\0') + "\x01\x01" + number(offsets.size()) + number(0) + number(objects.size());
    return objects + offsets + trailer;
}

TEST(PropertyListBytes, DoNotGrowMuchWhereTheyShare) {
    EXPECT_TRUE(readPropertyList(doubling(12)));
    EXPECT_FALSE(readPropertyList(doubling(20)));
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
        EXPECT_FALSE(readPropertyList(seed(name))) << name;
}

} // namespace
} // namespace quorvane
