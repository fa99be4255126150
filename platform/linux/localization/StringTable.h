#pragma once

#include <optional>

#include <QHash>
#include <QList>
#include <QString>

namespace quorvane {

/// The texts of one language, read from a string table: `"key" = "value";` with comments like those of C++.
/// Words of letters, digits and `_.-/:$` need no quotes.
class StringTable {
public:
    StringTable() = default;

    /// Reads up to the first fault: what comes before it counts. Of one key's several values the last does.
    explicit StringTable(const QString& text);

    /// The key's value; a null text for a key that is not there.
    QString value(const QString& key) const { return values_.value(key); }

    /// The keys in the file's order, every time that they are there.
    const QList<QString>& keys() const { return keys_; }

    /// Where the fault is, counted from 1; none when there is none.
    std::optional<int> faultyLine() const { return faultyLine_; }

private:
    QHash<QString, QString> values_;
    QList<QString> keys_;
    std::optional<int> faultyLine_;
};

} // namespace quorvane
