// What sway says and what its configuration says, taken apart.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "platform/linux/keyboard/XkbRegistry.h"
#include "platform/linux/sway/SwayBindings.h"
#include "platform/linux/sway/SwayMessages.h"

namespace quorvane {

void PrintTo(const SwayBinding& binding, std::ostream* out) {
    *out << int{binding.modifiers} << '+' << int{binding.keycode} << '/' << binding.keysym;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint16_t shift = 1, control = 4, alt = 8, super = 64;

TEST(SwayBindingsTest, FindsTheKeysThatTheUserHasBound) {
    const std::pair<const char*, std::vector<SwayBinding>> cases[] = {
        {"bindsym Ctrl+Alt+j exec x", {{control | alt, 0, XKB_KEY_j}}},
        {"bindsym MOD1+control+J exec x", {{control | alt, 0, XKB_KEY_j}}},
        {"  bindcode --locked --release Mod4+Shift+44 nop", {{super | shift, 44, 0}}},
        {"bindsym --to-code Group2+Mod4+Return exec x", {{super, 0, XKB_KEY_Return}}},
        {"set $mod Mod4\nset $m $mod+Shift\nset $modifier Mod1\nbindsym $m+a x\nbindsym $modifier+b x",
         {{super | shift, 0, XKB_KEY_a}, {alt, 0, XKB_KEY_b}}},
        {"bindsym {\n Mod4+a exec x\n # no Mod4+c\n Mod4+b exec x\n}\nbindsym Mod1+d x",
         {{super, 0, XKB_KEY_a}, {super, 0, XKB_KEY_b}, {alt, 0, XKB_KEY_d}}},
        {"bindsym Mod4+a \\\n exec x", {{super, 0, XKB_KEY_a}}},
        {"bindsym Mod4+a x\nbindsym Mod4+b x\nunbindsym Mod4+a", {{super, 0, XKB_KEY_b}}},
        {"mode \"resize\" {\n bindsym Mod4+a x\n}\nmode resize bindsym Mod4+b x", {}},
        {"mode default {\n bindsym Mod4+a x\n}", {{super, 0, XKB_KEY_a}}},
        {"bar {\n mode dock\n bindsym button4 nop\n colors {\n }\n}\nbindsym Mod4+a x",
         {{super, 0, XKB_KEY_a}}},
        {"input * {\n xkb_layout us\n}\nbindsym --whole-window button4 x\nbindsym a+b x\nbindsym\n}", {}},
        {"set $f file\ninclude ~/$f\nbindsym $inFile x", {{super, 0, XKB_KEY_x}, {super, 0, XKB_KEY_y}}},
        {"include itself", {}},
        {"", {}},
    };
    for (const auto& [text, expected] : cases) {
        SwayBindings bindings([](const std::string& pattern) -> std::vector<std::string> {
            if (pattern == "itself") return {"include itself"};
            return {pattern == "~/file" ? "bindsym Mod4+x x\nset $inFile Mod4+y" : ""};
        });
        bindings.read(text);
        EXPECT_EQ(bindings.all(), expected) << text;
    }
}

TEST(SwayMessagesTest, ArriveInPiecesOfAnySize) {
    const auto bytes = swayMessage(SwayRequest::getTree, "{\"a\": 1}") +
                       swayMessage(SwayRequest::getInputs, "no JSON") +
                       swayMessage(SwayRequest{0x80000003}, "[]");
    for (const qsizetype size : {qsizetype{1}, qsizetype{5}, bytes.size()}) {
        SwayMessages messages;
        std::vector<std::uint32_t> types;
        for (qsizetype place = 0; place < bytes.size(); place += size) {
            messages.append(bytes.mid(place, size));
            while (const auto message = messages.next()) {
                types.push_back(message->type);
                EXPECT_EQ(message->contents.isNull(), message->type == 100);
                EXPECT_EQ(message->isEvent(), message->type == 0x80000003);
            }
        }
        EXPECT_THAT(types, ElementsAre(4, 100, 0x80000003)) << size;
        EXPECT_FALSE(messages.isBroken());
    }
    for (const auto& broken : {QByteArray("HTTP/1.1 400 Bad"), "i3-ipc" + QByteArray(8, '\x7f')}) {
        SwayMessages messages;
        messages.append(broken);
        EXPECT_FALSE(messages.next());
        EXPECT_TRUE(messages.isBroken());
    }
}

TEST(XkbRegistryTest, KnowsLayoutsByTheirNames) {
    const auto layouts = layoutsOfNames({"Russian (phonetic)", "English (US)", "Nobody's", "German (Neo 2)"});
    EXPECT_THAT(layouts, ElementsAre(XkbLayout{"ru", "phonetic"}, XkbLayout{"us", ""},
                                     XkbLayout{"Nobody's", ""}, XkbLayout{"de", "neo"}));
    EXPECT_THAT(layoutsOfNames({}), IsEmpty());
}

} // namespace
} // namespace quorvane
