#include "platform/linux/input-methods/fcitx5/Fcitx5InputMethods.h"

#include <set>
#include <utility>

#include <QDBusArgument>
#include <QDBusMessage>

namespace quorvane {
namespace {

bool isAnswer(const QDBusMessage& answer, const char* signature) {
    return answer.type() == QDBusMessage::ReplyMessage && answer.signature() == QLatin1String(signature);
}

std::string takeText(const QDBusArgument& argument) {
    return argument.asVariant().toString().toStdString();
}

} // namespace

std::optional<Fcitx5Group> fcitx5GroupIn(const QDBusMessage& answer) {
    if (!isAnswer(answer, "sa(ss)")) return std::nullopt;
    Fcitx5Group group{answer.arguments().at(0).toString().toStdString(), {}};
    const auto items = answer.arguments().at(1).value<QDBusArgument>();
    std::set<std::string> known{{}};
    for (items.beginArray(); !items.atEnd();) {
        items.beginStructure();
        Fcitx5Group::Item item{takeText(items), takeText(items)};
        items.endStructure();
        if (known.insert(item.inputMethod).second) group.items.push_back(std::move(item));
    }
    items.endArray();
    return group;
}

std::optional<std::map<std::string, Fcitx5InputMethod>> fcitx5InputMethodsIn(const QDBusMessage& answer) {
    if (!isAnswer(answer, "a(ssssssb)")) return std::nullopt;
    std::map<std::string, Fcitx5InputMethod> inputMethods;
    const auto list = answer.arguments().at(0).value<QDBusArgument>();
    for (list.beginArray(); !list.atEnd();) {
        list.beginStructure();
        const auto key = takeText(list);
        Fcitx5InputMethod described{takeText(list), takeText(list), takeText(list), takeText(list)};
        takeText(list);   // the language
        list.asVariant(); // whether it has settings
        list.endStructure();
        inputMethods.try_emplace(key, std::move(described));
    }
    list.endArray();
    return inputMethods;
}

} // namespace quorvane
