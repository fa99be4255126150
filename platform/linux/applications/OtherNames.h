#pragma once

#include <map>
#include <optional>
#include <string>

#include <QTimer>

#include "platform/Subscription.h"
#include "platform/UserDefaults.h"
#include "platform/linux/applications/WindowOwners.h"

namespace quorvane {

/// Other names of programs without a desktop file: the class of their windows, where that is only another
/// spelling of the program's name, and once the identifier; or a path. What the user has set for them counts
/// for the program, now and whenever it is set: for a class once its first window has been seen, because only
/// then it is known which program says it.
class OtherNames {
public:
    /// All three must outlive this object.
    OtherNames(UserDefaultsStores& stores, WindowOwners& owners, DesktopEntries& entries);

private:
    std::optional<std::string> presentOf(const std::string& id) const;
    void takeOver();

    UserDefaultsStores& stores_;
    DesktopEntries& entries_;
    std::map<std::string, std::string> programs_; ///< By class.
    QTimer quiet_;
    Subscription renames_;
    Subscription changes_;
};

} // namespace quorvane
