#include "platform/DefaultsSearchList.h"

#include <algorithm>

namespace quorvane {

PropertyList DefaultsSearchList::objectForKey(std::string_view key) const {
    for (auto* domain : searched_)
        if (auto value = domain->objectForKey(key); !value.isNothing()) return value;
    return {};
}

void DefaultsSearchList::addSuiteNamed(std::string_view suiteName) {
    auto& suite = domainNamed_(suiteName);
    if (std::ranges::find(searched_, &suite) != searched_.end()) return;
    searched_.push_back(&suite);
    for (const auto& [key, watches] : watches_)
        watch(key, suite);
}

Subscription DefaultsSearchList::addObserver(std::string_view key,
                                             std::function<void(std::string_view)> handler) {
    if (watches_.try_emplace(std::string(key)).second)
        for (auto* domain : searched_)
            watch(key, *domain);
    return told_.connect([observed = std::string(key), handler = std::move(handler)](auto written) {
        if (written == observed) handler(written);
    });
}

void DefaultsSearchList::watch(std::string_view key, DefaultsDomain& domain) {
    watches_.find(key)->second.push_back(domain.addObserver(key, [this, &domain](std::string_view written) {
        if (!isHidden(domain, written)) told_.emit(written);
    }));
}

bool DefaultsSearchList::isHidden(const DefaultsDomain& domain, std::string_view key) const {
    const auto place = std::ranges::find(searched_, &domain);
    return std::any_of(searched_.begin(), place,
                       [key](auto* before) { return !before->objectForKey(key).isNothing(); });
}

} // namespace quorvane
