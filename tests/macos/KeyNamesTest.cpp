#include "platform/macos/recorder/KeyNames.h"
#include "macos/standins/StandIns.h"
#include "platform/GlobalEventMonitor.h"

namespace quorvane {
namespace {

using standins::system;
using Layout = PropertyList::Dictionary;

TEST(KeyNames, AreThoseOfTheLayoutOrElseOfAnAnsiKeyboard) {
    const Layout layout{{"TISPropertyUnicodeKeyLayoutData", PropertyList::Data{1}}};
    const standins::FreshSystem fresh;
    const auto names = [] {
        std::string text;
        for (const std::int64_t keyCode : {0x00, 0x06, 0x1b, 0x21, 0x24, 0x31, 0x4f, 0x68, 0x1000, -1})
            text += nameOfKey(keyCode, "space") + ' ';
        return text;
    };
    const std::string ansi = "A Z - [ ↩ space F18 #104 #4096 #-1 ";
    const std::pair<Layout, std::string> cases[] = {
        {layout, "Q Y ß Ü ↩ space F18 #104 #4096 #-1 "},
        {{}, ansi},
        {{{"TISPropertyLocalizedName", "has no data"}}, ansi},
        {{{"TISPropertyUnicodeKeyLayoutData", "of another type"}}, ansi},
        {{{"TISPropertyUnicodeKeyLayoutData", PropertyList::Data{}}}, ansi}};
    for (const auto& [asciiCapableLayout, expected] : cases) {
        system().asciiCapableLayout = asciiCapableLayout;
        system().typedByKeys = {{0x00, u"q"}, {0x06, u"y"},  {0x1b, u"ß"},  {0x21, u"ü"},
                                {0x24, u"x"}, {0x68, u"\b"}, {0x1000, u"x"}};
        EXPECT_EQ(names(), expected);
    }
    EXPECT_EQ(textOf({.keyCode = 0x00, .modifierFlags = 0x1e'0000}, ""), "⌃⌥⇧⌘A");
    EXPECT_EQ(textOfModifiers(ModifierFlag::shift | ModifierFlag::capsLock), "⇧");
}

} // namespace
} // namespace quorvane
