#include "platform/linux/preferences/KeyNames.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

#include <QKeySequence>
#include <X11/keysym.h>
#include <xkbcommon/xkbcommon.h>

#include "platform/linux/keyboard/KeyCodes.h"
#include "settings/KeyNames.h"

namespace quorvane {
namespace {

struct NamedKey {
    std::int64_t keyCode;
    QKeyCombination key;
};

// clang-format off
constexpr NamedKey namedKeys[] = {
    {0x35, Qt::Key_Escape}, {0x33, Qt::Key_Backspace}, {0x30, Qt::Key_Tab}, {0x24, Qt::Key_Return},
    {0x31, Qt::Key_Space}, {0x6e, Qt::Key_Menu},
    {0x72, Qt::Key_Insert}, {0x75, Qt::Key_Delete}, {0x73, Qt::Key_Home}, {0x77, Qt::Key_End},
    {0x74, Qt::Key_PageUp}, {0x79, Qt::Key_PageDown},
    {0x7b, Qt::Key_Left}, {0x7c, Qt::Key_Right}, {0x7e, Qt::Key_Up}, {0x7d, Qt::Key_Down},
    {0x47, Qt::Key_NumLock},
    {0x52, Qt::KeypadModifier | Qt::Key_0}, {0x53, Qt::KeypadModifier | Qt::Key_1},
    {0x54, Qt::KeypadModifier | Qt::Key_2}, {0x55, Qt::KeypadModifier | Qt::Key_3},
    {0x56, Qt::KeypadModifier | Qt::Key_4}, {0x57, Qt::KeypadModifier | Qt::Key_5},
    {0x58, Qt::KeypadModifier | Qt::Key_6}, {0x59, Qt::KeypadModifier | Qt::Key_7},
    {0x5b, Qt::KeypadModifier | Qt::Key_8}, {0x5c, Qt::KeypadModifier | Qt::Key_9},
    {0x41, Qt::KeypadModifier | Qt::Key_Period}, {0x43, Qt::KeypadModifier | Qt::Key_Asterisk},
    {0x45, Qt::KeypadModifier | Qt::Key_Plus}, {0x4b, Qt::KeypadModifier | Qt::Key_Slash},
    {0x4c, Qt::KeypadModifier | Qt::Key_Enter}, {0x4e, Qt::KeypadModifier | Qt::Key_Minus},
    {0x51, Qt::KeypadModifier | Qt::Key_Equal}, {0x5f, Qt::KeypadModifier | Qt::Key_Comma},
    {0x48, Qt::Key_VolumeUp}, {0x49, Qt::Key_VolumeDown}, {0x4a, Qt::Key_VolumeMute},
};
// clang-format on

/// Of XK_dead_grave and those that follow it, which no code point stands for.
constexpr std::u16string_view accents = u"`´^~¯˘˙¨°˝ˇ¸˛";

/// Whether it types most of the Latin alphabet.
bool isLatin(const TypedKeysyms& keysyms) {
    constexpr int mostOfTheAlphabet = 14;
    return std::ranges::count_if(keysyms, [](const auto& key) {
               return key.second >= XK_a && key.second <= XK_z;
           }) >= mostOfTheAlphabet;
}

QString nameOfKeysym(std::uint32_t keysym) {
    if (keysym >= XK_dead_grave && keysym - XK_dead_grave < accents.size())
        return QChar(accents[keysym - XK_dead_grave]);
    const char32_t character = xkb_keysym_to_utf32(keysym);
    if (QChar::isPrint(character)) {
        const auto capital = QChar::toUpper(character);
        return QString::fromUcs4(&capital, 1);
    }
    std::array<char, 64> name{};
    return xkb_keysym_get_name(keysym, name.data(), name.size()) > 0 ? QString::fromUtf8(name.data())
                                                                     : QString();
}

QString nameOfNamed(const NamedKey& key) {
    return QKeySequence(key.key).toString(QKeySequence::NativeText);
}

} // namespace

KeyNames::KeyNames(std::vector<TypedKeysyms> layouts) {
    const auto latin = std::ranges::find_if(layouts, isLatin);
    if (latin != layouts.end())
        keysyms_ = std::move(*latin);
    else if (!layouts.empty())
        keysyms_ = std::move(layouts.front());
}

int KeyNames::widestName(const QFontMetrics& font) {
    int widest = 0;
    for (const auto& key : namedKeys)
        widest = std::max(widest, font.horizontalAdvance(nameOfNamed(key)));
    return widest;
}

std::optional<std::int64_t> KeyNames::keyCodeOf(int key) {
    const auto* const named =
        std::ranges::find(namedKeys, key, [](const auto& each) { return each.key.key(); });
    return named == std::end(namedKeys) ? std::nullopt : std::optional(named->keyCode);
}

QString KeyNames::nameOf(std::int64_t keyCode) const {
    if (const auto name = nameIn(functionKeys, keyCode); !name.empty())
        return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    const auto* const named = std::ranges::find(namedKeys, keyCode, &NamedKey::keyCode);
    if (named != std::end(namedKeys)) return nameOfNamed(*named);
    const auto keysym = keysyms_.find(xKeycodeOf(keyCode).value_or(0));
    const auto name = keysym == keysyms_.end() || keysym->second == XKB_KEY_NoSymbol
                          ? QString()
                          : nameOfKeysym(keysym->second);
    return name.isEmpty() ? QStringLiteral("#%1").arg(keyCode) : name;
}

} // namespace quorvane
