#pragma once

#include <cstdint>
#include <utility>

#include "platform/PropertyList.h"

namespace quorvane {

/// What a control that records key combinations shows.
class SRRecorderControl {
public:
    /// The recorded combination, see `InputShortcut`; nothing when there is none.
    const PropertyList& objectValue() const { return objectValue_; }
    void setObjectValue(PropertyList value) { objectValue_ = std::move(value); }

private:
    PropertyList objectValue_;
};

/// A recorder in a table: its tag is the row, which is also the input source's place in the list of them.
class SRRecorderControlWithTagid : public SRRecorderControl {
public:
    std::int64_t tagid() const { return tagis_; }
    void setTagid(std::int64_t tagid) { tagis_ = tagid; }

private:
    std::int64_t tagis_ = 0;
};

} // namespace quorvane
