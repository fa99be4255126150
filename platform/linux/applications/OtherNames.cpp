#include "platform/linux/applications/OtherNames.h"

#include <chrono>

#include "platform/linux/desktop-files/ApplicationFiles.h"
#include "settings/FormerIdentifiers.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

OtherNames::OtherNames(UserDefaultsStores& stores, WindowOwners& owners, DesktopEntries& entries)
    : stores_(stores)
    , entries_(entries)
    , renames_(owners.renamed.connect([this](const std::string& wmClass, const std::string& program) {
        if (programs_.insert_or_assign(wmClass, program).second) takeOver();
    }))
    , changes_(stores.standardUserDefaults().addObserver(key::autoInput, [this](auto) { quiet_.start(); })) {
    // All rules are written at once, and whoever is just writing several of them shall not lose one.
    quiet_.setSingleShot(true);
    quiet_.setInterval(std::chrono::seconds(1));
    QObject::connect(&quiet_, &QTimer::timeout, &quiet_, [this] { takeOver(); });
    takeOver();
}

std::optional<std::string> OtherNames::presentOf(const std::string& id) const {
    if (id.starts_with('/')) return bundleIdentifierOfFile(entries_, id);
    const auto program = programs_.find(id);
    return program == programs_.end() ? std::nullopt : std::optional(program->second);
}

void OtherNames::takeOver() {
    const auto present = [this](const std::string& id) { return presentOf(id); };
    takeOverFormerIdentifiers(stores_.standardUserDefaults(), present);
    takeOverFormerIdentifiers(*openSharedDefaults(stores_), present);
}

} // namespace quorvane
