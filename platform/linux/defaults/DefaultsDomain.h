#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Signal.h"
#include "platform/linux/defaults/DefaultsFile.h"

namespace quorvane {

/// One domain as this process sees it: what the file holds, and on top of it what this process has written
/// and the file does not hold yet.
class DefaultsDomain {
public:
    explicit DefaultsDomain(std::filesystem::path path);

    /// Costs a look at the file's identity; the file is read again only when it is another one.
    PropertyList objectForKey(std::string_view key);

    void setObject(std::string_view key, PropertyList value);

    bool hasPendingWrites() const { return !pending_.empty(); }

    /// Writes what is pending. False when it stays pending.
    bool flush();

    /// Writes what is pending, and waits until all is on the disk.
    bool synchronize();

    /// Tells of the keys that others have changed since this was last called.
    void tellForeignChanges();

    Signal<std::string_view> written; ///< A key, after each write of it.

private:
    void refresh();
    bool write(DefaultsFile::Durability durability);

    DefaultsFile file_;
    DefaultsFile::Identity identity_;
    PropertyList values_ = PropertyList::Dictionary{}; ///< As last read; stays when the file is damaged.
    PropertyList told_;                                ///< As observers know it.
    DefaultsFile::Changes pending_;
    bool isOnDisk_ = true;
};

} // namespace quorvane
