#pragma once

#include <cstddef>
#include <string_view>

namespace quorvane {

// Whether a parser that trusts its input may be given these bytes. Nothing is said about whether they are a
// property list at all.

/// At most `nesting` containers inside each other, no NUL, no declarations or instructions among the values.
bool isHarmlessXml(std::string_view bytes, int nesting);

/// The same, and everything that begins in the bytes ends there: containers, comments, tags.
bool isWholeXml(std::string_view bytes, int nesting);

/// At most `nesting` containers inside each other, and not more than `size` bytes and objects in total when
/// every object is written out wherever it is referred to.
bool isHarmlessBinary(std::string_view bytes, int nesting, std::size_t size);

} // namespace quorvane
