#include "platform/linux/defaults/PropertyListShape.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace quorvane {
namespace {

bool isContainer(std::string_view tag) {
    return tag.starts_with("dict") || tag.starts_with("array");
}

/// The text of the tag that the bytes start with. None for one a parser may end elsewhere: with a bracket or
/// half of a quotation inside.
std::optional<std::string_view> wholeTag(std::string_view bytes) {
    const auto end = bytes.find_first_of("<>");
    if (end == std::string_view::npos || bytes[end] == '<') return std::nullopt;
    const auto tag = bytes.substr(0, end);
    const bool hasHalfQuotation = std::ranges::count(tag, '"') % 2 != 0;
    if (hasHalfQuotation || tag.find('[') != std::string_view::npos) return std::nullopt;
    return tag;
}

/// The tags of XML text, one after the other. A document may stop in the middle, which is for a parser to
/// refuse; a part of one may not, and leaves nothing open.
class XmlWalk {
public:
    enum class Bytes { aDocument, aPart };

    XmlWalk(std::string_view bytes, int nesting, Bytes kind)
        : bytes_(bytes)
        , nesting_(nesting)
        , isPart_(kind == Bytes::aPart) {}

    bool isHarmless() {
        if (bytes_.find('\0') != std::string_view::npos) return false;
        while (skipBehind("<")) {
            if (bytes_.starts_with("!--")) {
                bytes_.remove_prefix(3);
                if (!skipBehind("-->")) return !isPart_;
            } else if (bytes_.starts_with("![CDATA[")) {
                if (!skipBehind("]]>")) return !isPart_;
            } else if (!takeTag()) {
                return false;
            }
        }
        return !isPart_ || depth_ == 0;
    }

private:
    /// False when the mark does not come any more.
    bool skipBehind(std::string_view mark) {
        const auto at = bytes_.find(mark);
        if (at == std::string_view::npos) return false;
        bytes_.remove_prefix(at + mark.size());
        return true;
    }

    /// False for a tag that hides something, or leads too deep.
    bool takeTag() {
        const auto tag = wholeTag(bytes_);
        if (!tag) return false;
        const bool isInside = depth_ > 0 || isPart_;
        if (tag->starts_with('!') && isInside) return false;
        if (tag->starts_with('?') && (isInside || !tag->ends_with('?'))) return false;
        if (tag->starts_with('/')) {
            if (!isContainer(tag->substr(1))) return true;
            if (depth_ == 0) return !isPart_;
            --depth_;
            return true;
        }
        if (isContainer(*tag) && !tag->ends_with('/')) ++depth_;
        return depth_ <= nesting_;
    }

    std::string_view bytes_;
    int nesting_;
    bool isPart_;
    int depth_ = 0;
};

/// The objects of a binary property list, walked the way a parser does that expands every reference.
class BinaryWalk {
public:
    BinaryWalk(std::string_view bytes, int nesting, std::size_t size)
        : bytes_(bytes)
        , nesting_(nesting)
        , budget_(size) {}

    bool isHarmless() {
        constexpr std::size_t trailerSize = 32;
        if (bytes_.size() < trailerSize) return false;
        const auto trailer = bytes_.size() - trailerSize;
        offsetWidth_ = static_cast<std::uint8_t>(bytes_[trailer + 6]);
        referenceWidth_ = static_cast<std::uint8_t>(bytes_[trailer + 7]);
        const auto count = integer(trailer + 8, 8);
        const auto root = integer(trailer + 16, 8);
        const auto table = integer(trailer + 24, 8);
        if (!count || !root || !table || *count > bytes_.size()) return false;
        objectCount_ = *count;
        offsetTable_ = *table;
        return walk(*root, 0);
    }

private:
    struct Header {
        unsigned kind;
        std::uint64_t length;   // in the object's own unit
        std::uint64_t contents; // where they start
    };

    /// Big-endian; none when it does not lie within the bytes.
    std::optional<std::uint64_t> integer(std::uint64_t at, unsigned width) const {
        if (width == 0 || width > 8 || at > bytes_.size() || bytes_.size() - at < width) return std::nullopt;
        std::uint64_t value = 0;
        for (const char byte : bytes_.substr(at, width))
            value = value << 8 | static_cast<std::uint8_t>(byte);
        return value;
    }

    std::optional<Header> header(std::uint64_t object) const {
        if (object >= objectCount_ || offsetTable_ > bytes_.size()) return std::nullopt;
        const auto at = integer(offsetTable_ + object * offsetWidth_, offsetWidth_);
        const auto marker = at ? integer(*at, 1) : std::nullopt;
        if (!marker) return std::nullopt;
        Header header{static_cast<unsigned>(*marker >> 4), *marker & 0xF, *at + 1};
        const bool isLong = header.length == 0xF && header.kind >= 4;
        if (!isLong) return header;
        const auto lengthMarker = integer(header.contents, 1);
        if (!lengthMarker || *lengthMarker >> 4 != 1 || (*lengthMarker & 0xF) > 3) return std::nullopt;
        const unsigned width = 1U << (*lengthMarker & 0xF);
        const auto length = integer(header.contents + 1, width);
        if (!length) return std::nullopt;
        header.length = *length;
        header.contents += 1 + width;
        return header;
    }

    bool spend(std::uint64_t amount) {
        if (amount > budget_) return false;
        budget_ -= amount;
        return true;
    }

    bool walk(std::uint64_t object, int depth) {
        const auto found = header(object);
        // Two bytes for each unit: the widest characters of a string, or key and value of a dictionary.
        if (!found || found->length > budget_ || !spend(1 + 2 * found->length)) return false;
        constexpr unsigned array = 0xA;
        constexpr unsigned set = 0xC;
        constexpr unsigned dictionary = 0xD;
        if (found->kind != array && found->kind != set && found->kind != dictionary) return true;
        if (depth == nesting_) return false;
        const auto references = found->kind == dictionary ? 2 * found->length : found->length;
        for (std::uint64_t index = 0; index < references; ++index) {
            const auto child = integer(found->contents + index * referenceWidth_, referenceWidth_);
            if (!child || !walk(*child, depth + 1)) return false;
        }
        return true;
    }

    std::string_view bytes_;
    int nesting_;
    std::uint64_t budget_;
    unsigned offsetWidth_ = 0;
    unsigned referenceWidth_ = 0;
    std::uint64_t objectCount_ = 0;
    std::uint64_t offsetTable_ = 0;
};

} // namespace

bool isHarmlessXml(std::string_view bytes, int nesting) {
    return XmlWalk(bytes, nesting, XmlWalk::Bytes::aDocument).isHarmless();
}

bool isWholeXml(std::string_view bytes, int nesting) {
    return XmlWalk(bytes, nesting, XmlWalk::Bytes::aPart).isHarmless();
}

bool isHarmlessBinary(std::string_view bytes, int nesting, std::size_t size) {
    return BinaryWalk(bytes, nesting, size).isHarmless();
}

} // namespace quorvane
