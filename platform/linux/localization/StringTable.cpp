#include "platform/linux/localization/StringTable.h"

#include <QStringView>

namespace quorvane {
namespace {

/// Reads a table from its front to its end. A reader that has met a fault stays there.
class Reader {
public:
    explicit Reader(QStringView text) : text_(text) {}

    bool isAtEnd() {
        skipBlanks();
        return place_ >= text_.size();
    }

    bool isFaulty() const { return isFaulty_; }
    int line() const { return 1 + int(text_.first(place_).count(u'\n')); }

    void expect(char16_t wanted) {
        if (isFaulty_) return;
        skipBlanks();
        if (here() == wanted)
            ++place_;
        else
            isFaulty_ = true;
    }

    QString word() {
        if (isFaulty_) return {};
        skipBlanks();
        return here() == u'"' ? quotedWord() : bareWord();
    }

private:
    /// Nothing at the end.
    QChar here() const { return place_ < text_.size() ? text_[place_] : QChar(); }

    QStringView rest() const { return text_.sliced(place_); }

    void skipBlanks() {
        for (;;) {
            while (place_ < text_.size() && here().isSpace())
                ++place_;
            if (rest().startsWith(u"//"))
                skipPast(u"\n", true);
            else if (rest().startsWith(u"/*"))
                skipPast(u"*/", false);
            else
                return;
            if (isFaulty_) return;
        }
    }

    void skipPast(QStringView end, bool mayBeMissing) {
        const auto found = text_.indexOf(end, place_ + 2);
        if (found >= 0)
            place_ = found + end.size();
        else if (mayBeMissing)
            place_ = text_.size();
        else
            isFaulty_ = true;
    }

    QString bareWord() {
        const auto start = place_;
        while (here().isLetterOrNumber() || (!here().isNull() && QStringView(u"_.-/:$").contains(here())))
            ++place_;
        if (place_ == start) isFaulty_ = true;
        return text_.sliced(start, place_ - start).toString();
    }

    QString quotedWord() {
        const auto start = place_++;
        QString word;
        while (place_ < text_.size()) {
            const auto character = text_[place_++];
            if (character == u'"') return word;
            word += character == u'\\' ? escapedCharacter() : character;
        }
        place_ = start; // That the quote does not end shows only at the end of the file.
        isFaulty_ = true;
        return {};
    }

    QChar escapedCharacter() {
        if (place_ >= text_.size()) return {};
        const auto character = text_[place_++];
        switch (character.unicode()) {
        case u'n':
            return u'\n';
        case u't':
            return u'\t';
        case u'r':
            return u'\r';
        case u'U':
            return unitOfCode();
        default:
            return character;
        }
    }

    /// Four hexadecimal digits. A character beyond the first 65,536 is written as two such units.
    QChar unitOfCode() {
        constexpr qsizetype length = 4;
        bool isNumber = false;
        const auto unit = rest().first(std::min(length, rest().size())).toUShort(&isNumber, 16);
        if (!isNumber) return u'U';
        place_ += std::min(length, rest().size());
        return unit;
    }

    QStringView text_;
    qsizetype place_ = 0;
    bool isFaulty_ = false;
};

} // namespace

StringTable::StringTable(const QString& text) {
    Reader reader(text);
    while (!reader.isAtEnd()) {
        const auto key = reader.word();
        reader.expect(u'=');
        const auto value = reader.word();
        reader.expect(u';');
        if (reader.isFaulty()) break;
        keys_.append(key);
        values_.insert(key, value);
    }
    if (reader.isFaulty()) faultyLine_ = reader.line();
}

} // namespace quorvane
