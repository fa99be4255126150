// What other programs send over the session bus. The bus vouches for the types of a message, not for what it
// says.

#include <QVariant>
#include <glib.h>

#include <cstdlib>
#include <cstring>

#include "fuzz/FuzzTargets.h"
#include "platform/linux/dbus/DBusPropertyList.h"
#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Answers.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Names.h"
#include "platform/linux/input-methods/ibus/IBusAddress.h"
#include "platform/linux/input-methods/ibus/IBusEngines.h"

namespace quorvane {
namespace {

/// A value as a bus may deliver it, spelt by bytes: each one chooses a type, and containers take what follows
/// until an `e`.
class Message {
public:
    explicit Message(std::string_view bytes) : bytes_(bytes) {}

    QVariant value(int depth = 0) {
        constexpr int deepest = 80; // deeper than the reader goes, and than the bus allows
        const auto type = take();
        if (depth == deepest) return {};
        if (type == 'b') return take() % 2 != 0;
        if (type == 'i') return take() - 128;
        if (type == 'x') return qlonglong(-1) << take() % 64;
        if (type == 't') return ~qulonglong(0) >> take() % 64;
        if (type == 'd') return number();
        if (type == 's') return QString::fromUtf8(text());
        if (type == 'y') return text();
        if (type == 'l') return list(depth);
        if (type == 'm') return map(depth);
        return {};
    }

private:
    int take() {
        if (bytes_.empty()) return 'e';
        const auto first = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return first;
    }
    bool takesEnd() {
        if (!bytes_.empty() && bytes_.front() != 'e') return false;
        take();
        return true;
    }
    QByteArray text() {
        const auto part = bytes_.substr(0, static_cast<std::size_t>(take()));
        bytes_.remove_prefix(std::min(part.size(), bytes_.size()));
        return {part.data(), qsizetype(part.size())};
    }
    double number() {
        double value = 0;
        std::memcpy(&value, bytes_.data(), std::min(sizeof value, bytes_.size()));
        bytes_.remove_prefix(std::min(sizeof value, bytes_.size()));
        return value;
    }
    QVariantList list(int depth) {
        QVariantList elements;
        while (!takesEnd())
            elements.append(value(depth + 1));
        return elements;
    }
    QVariantMap map(int depth) {
        QVariantMap entries;
        while (!takesEnd()) {
            const auto key = QString::fromUtf8(text());
            entries.insert(key, value(depth + 1));
        }
        return entries;
    }

    std::string_view bytes_;
};

} // namespace

void readNotification(std::string_view bytes) {
    const auto userInfo = fromDBus(Message(bytes).value());
    const auto again = fromDBus(toDBus(userInfo));
    if (userInfo.integerValue() != again.integerValue() || userInfo.boolValue() != again.boolValue())
        std::abort();
}

void readDaemonsAnswer(std::string_view bytes) {
    const auto answer = [bytes](const char* type) {
        return GVariantRef(g_variant_ref_sink(g_variant_new_from_data(
            G_VARIANT_TYPE(type), bytes.data(), bytes.size(), FALSE, nullptr, nullptr)));
    };
    enabledEngines(answer("av").get(), {"libpinyin"}, {"xkb:us"});
    fcitx5GroupIn(answer("(sa(ss))").get());
    fcitx5InputMethodsIn(answer("(a(ssssssb))").get());
    fcitx5FocusIn(bytes);
    ibusAddressIn(bytes);
    const auto id = idOfEngine(bytes);
    if (!id.starts_with(ibusIdPrefix) && !id.starts_with("xkb:")) std::abort();
    fcitx5InputMethodOfID(bytes);
    fcitx5InputMethodOfID(idOfFcitx5InputMethod(bytes));
}

} // namespace quorvane
