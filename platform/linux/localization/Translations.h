#pragma once

#include <utility>

#include <QTranslator>

#include "platform/linux/localization/StringTable.h"

namespace quorvane {

/// Answers from a string table, whatever the context of the text.
class StringTableTranslator : public QTranslator {
public:
    explicit StringTableTranslator(StringTable table) : table_(std::move(table)) {}

    bool isEmpty() const override { return table_.keys().isEmpty(); }
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;

private:
    StringTable table_;
};

/// Has the program's texts, and Qt's own as far as they are installed, appear in the user's language from now
/// on. Both belong to the application, which must exist.
void installTranslations();

} // namespace quorvane
