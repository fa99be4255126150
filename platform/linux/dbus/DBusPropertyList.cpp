#include "platform/linux/dbus/DBusPropertyList.h"

#include <limits>
#include <utility>

#include <QDBusArgument>
#include <QDBusVariant>
#include <QDateTime>

namespace quorvane {
namespace {

constexpr int deepestNesting = 32; // half of what D-Bus itself allows

const QDateTime& referenceDate() {
    static const QDateTime date(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    return date;
}

PropertyList convert(const QVariant& value, int depth);

PropertyList convertMap(const QVariantMap& map, int depth) {
    PropertyList::Dictionary dictionary;
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        auto value = convert(entry.value(), depth);
        if (!value.isNothing()) dictionary.emplace(entry.key().toStdString(), std::move(value));
    }
    return dictionary;
}

PropertyList convertList(const QVariantList& list, int depth) {
    PropertyList::Array array;
    for (const auto& element : list) {
        auto value = convert(element, depth);
        if (!value.isNothing()) array.push_back(std::move(value));
    }
    return array;
}

/// Containers inside a variant come unread, of whatever type their elements are.
PropertyList convertArgument(const QDBusArgument& argument, int depth) {
    if (argument.currentType() == QDBusArgument::ArrayType) {
        QVariantList list;
        argument.beginArray();
        while (!argument.atEnd())
            list.append(argument.asVariant());
        argument.endArray();
        return convertList(list, depth);
    }
    if (argument.currentType() != QDBusArgument::MapType) return {};
    QVariantMap map;
    argument.beginMap();
    while (!argument.atEnd()) {
        argument.beginMapEntry();
        const auto key = argument.asVariant();
        const auto value = argument.asVariant();
        argument.endMapEntry();
        map.insert(key.toString(), value);
    }
    argument.endMap();
    return convertMap(map, depth);
}

PropertyList convertUnsigned(qulonglong value) {
    if (value > static_cast<qulonglong>(std::numeric_limits<std::int64_t>::max())) return double(value);
    return static_cast<std::int64_t>(value);
}

PropertyList convert(const QVariant& value, int depth) {
    if (depth > deepestNesting) return {};
    const auto type = value.metaType();
    if (type == QMetaType::fromType<QDBusVariant>())
        return convert(value.value<QDBusVariant>().variant(), depth + 1);
    if (type == QMetaType::fromType<QDBusArgument>())
        return convertArgument(value.value<QDBusArgument>(), depth + 1);
    switch (type.id()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return std::int64_t{value.toLongLong()};
    case QMetaType::ULongLong:
        return convertUnsigned(value.toULongLong());
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return value.toString().toStdString();
    case QMetaType::QByteArray: {
        const auto bytes = value.toByteArray();
        return PropertyList::Data(bytes.begin(), bytes.end());
    }
    case QMetaType::QVariantMap:
        return convertMap(value.toMap(), depth + 1);
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return convertList(value.toList(), depth + 1);
    default:
        return {};
    }
}

} // namespace

QVariant toDBus(const PropertyList& value) {
    if (const auto* boolean = value.boolean()) return *boolean;
    if (const auto* integer = value.integer()) return qlonglong{*integer};
    if (const auto* real = value.real()) return *real;
    if (const auto* text = value.string()) return QString::fromStdString(*text);
    if (const auto* date = value.date()) {
        return referenceDate().addMSecs(qint64(date->secondsSince2001 * 1000)).toString(Qt::ISODateWithMs);
    }
    if (const auto* data = value.data())
        return QByteArray(reinterpret_cast<const char*>(data->data()), qsizetype(data->size()));
    if (const auto* array = value.array()) {
        QVariantList list;
        for (const auto& element : *array)
            list.append(toDBus(element));
        return list;
    }
    QVariantMap map;
    if (const auto* dictionary = value.dictionary()) {
        for (const auto& [key, entry] : *dictionary)
            map.insert(QString::fromStdString(key), toDBus(entry));
    }
    return map;
}

PropertyList fromDBus(const QVariant& value) {
    return convert(value, 0);
}

} // namespace quorvane
