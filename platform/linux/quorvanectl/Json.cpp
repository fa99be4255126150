#include "platform/linux/quorvanectl/Json.h"

#include <algorithm>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace quorvane {
namespace {

QJsonValue toJson(const PropertyList& value) {
    if (const auto* boolean = value.boolean()) return *boolean;
    if (const auto* integer = value.integer()) return qint64{*integer};
    if (const auto* real = value.real()) return *real;
    if (const auto* text = value.string()) return QString::fromStdString(*text);
    if (const auto* array = value.array()) {
        QJsonArray json;
        for (const auto& element : *array)
            json.append(toJson(element));
        return json;
    }
    if (const auto* dictionary = value.dictionary()) {
        QJsonObject json;
        for (const auto& [key, element] : *dictionary)
            json.insert(QString::fromStdString(key), toJson(element));
        return json;
    }
    return {};
}

PropertyList numberOf(const QJsonValue& json) {
    const auto variant = json.toVariant();
    if (variant.typeId() == QMetaType::LongLong) return std::int64_t{variant.toLongLong()};
    return json.toDouble();
}

PropertyList fromJson(const QJsonValue& json) {
    switch (json.type()) {
    case QJsonValue::Bool:
        return json.toBool();
    case QJsonValue::Double:
        return numberOf(json);
    case QJsonValue::String:
        return json.toString().toStdString();
    case QJsonValue::Array: {
        PropertyList::Array array;
        const auto elements = json.toArray();
        for (const auto& element : elements)
            if (auto value = fromJson(element); !value.isNothing()) array.push_back(std::move(value));
        return array;
    }
    case QJsonValue::Object: {
        PropertyList::Dictionary dictionary;
        const auto object = json.toObject();
        for (auto entry = object.begin(); entry != object.end(); ++entry)
            if (auto value = fromJson(entry.value()); !value.isNothing())
                dictionary.emplace(entry.key().toStdString(), std::move(value));
        return dictionary;
    }
    default:
        return {};
    }
}

} // namespace

std::string jsonOf(const PropertyList& value, JsonForm form) {
    const auto json = toJson(value);
    const auto document = json.isArray() ? QJsonDocument(json.toArray()) : QJsonDocument(json.toObject());
    return form == JsonForm::indented ? document.toJson().toStdString()
                                      : document.toJson(QJsonDocument::Compact).toStdString() + '\n';
}

std::optional<PropertyList> readJson(std::string_view text, std::string& error) {
    QJsonParseError fault{};
    const auto bytes = QByteArray::fromRawData(text.data(), qsizetype(text.size()));
    const auto document = QJsonDocument::fromJson(bytes, &fault);
    if (fault.error != QJsonParseError::NoError) {
        const auto line =
            1 +
            std::count(text.begin(), text.begin() + std::min<qsizetype>(fault.offset, bytes.size()), '\n');
        error = "line " + std::to_string(line) + ": " + fault.errorString().toStdString();
        return std::nullopt;
    }
    return document.isArray() ? fromJson(document.array()) : fromJson(document.object());
}

} // namespace quorvane
