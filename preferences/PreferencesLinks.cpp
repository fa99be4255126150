#include "preferences/PreferencesLinks.h"

#include <algorithm>
#include <array>
#include <string>

#include "settings/Maker.h"

namespace quorvane {
namespace {

constexpr std::string_view moreFreeApps = "moreFreeApps";

/// When the page of other applications went on line.
constexpr double moreFreeAppsSince = 1635853234; // seconds since 1970

constexpr std::string_view secure = "https://";
constexpr std::string_view plain = "http://";
constexpr std::string_view store = "macappstore://";

struct Link {
    std::string_view action;
    std::string_view scheme;
    std::string_view host;
    std::string_view path;
    std::string DesktopFacts::*pageOfDesktop = nullptr; ///< Where it is instead, unless that is empty.
};

constexpr std::array links = {
    Link{"QQExchangeGroup", secure, maker::website, "/qq-group?statId=53"},
    Link{"technicalSupport", secure, maker::website, "/support"},
    Link{"feedbackOfSwitchLocation", secure, maker::website, "/support"},
    Link{moreFreeApps, secure, maker::website, "/"},
    Link{"instructionsForChangedInputByLocation", secure, maker::website, "/switch-by-location"},
    Link{"gotoQuorvane", store, maker::storeReview, maker::storeIdentifier, &DesktopFacts::reviewPage},
    Link{"gotoQuorvanePro", store, maker::storeReview, maker::storeIdentifierOfPro,
         &DesktopFacts::reviewPageOfPro},
    Link{"TeachingVideo", secure, maker::website, "/video"},
    Link{"FAQDocument", secure, maker::website, "/faq"},
    Link{"gotoOfficialWebsite", plain, maker::website, "/"},
    Link{"privacyPolicy", secure, maker::website, "/privacy"},
    Link{"termsOfUse", secure, maker::website, "/terms"},
};

} // namespace

void PreferencesLinks::open(std::string_view action) {
    const auto* const link = std::ranges::find(links, action, &Link::action);
    if (link == links.end()) return;
    if (action == moreFreeApps && clock_.secondsSince1970() <= moreFreeAppsSince) return;
    if (link->pageOfDesktop && !(facts_.*link->pageOfDesktop).empty()) {
        links_.openURL(facts_.*link->pageOfDesktop);
        return;
    }
    links_.openURL(std::string(link->scheme).append(link->host).append(link->path));
}

} // namespace quorvane
