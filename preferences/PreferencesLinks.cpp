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
    std::string_view placeInHelp = {};                  ///< What of the help says the same; empty: nothing.
};

constexpr std::array links = {
    Link{"QQExchangeGroup", secure, maker::website, "/qq-group?statId=53"},
    Link{"technicalSupport", secure, maker::website, "/support"},
    Link{"feedbackOfSwitchLocation", secure, maker::website, "/support"},
    Link{moreFreeApps, secure, maker::website, "/"},
    Link{"instructionsForChangedInputByLocation", secure, maker::website, "/switch-by-location", nullptr,
         "#places"},
    Link{"gotoQuorvane", store, maker::storeReview, maker::storeIdentifier, &DesktopFacts::reviewPage},
    Link{"gotoQuorvanePro", store, maker::storeReview, maker::storeIdentifierOfPro,
         &DesktopFacts::reviewPageOfPro},
    Link{"TeachingVideo", secure, maker::website, "/video", nullptr, "#start"},
    Link{"FAQDocument", secure, maker::website, "/faq", nullptr, "#questions"},
    Link{"gotoOfficialWebsite", plain, maker::website, "/"},
    Link{"privacyPolicy", secure, maker::website, "/privacy"},
    Link{"termsOfUse", secure, maker::website, "/terms"},
};

std::string addressOf(const Link& link, const DesktopFacts& facts, bool makerHasWebsite) {
    if (link.pageOfDesktop && !(facts.*link.pageOfDesktop).empty()) return facts.*link.pageOfDesktop;
    if (!makerHasWebsite && !link.placeInHelp.empty() && !facts.helpPage.empty())
        return facts.helpPage + std::string(link.placeInHelp);
    return std::string(link.scheme).append(link.host).append(link.path);
}

} // namespace

void PreferencesLinks::open(std::string_view action) {
    const auto* const link = std::ranges::find(links, action, &Link::action);
    if (link == links.end()) return;
    if (action == moreFreeApps && clock_.secondsSince1970() <= moreFreeAppsSince) return;
    links_.openURL(addressOf(*link, facts_, makerHasWebsite_));
}

} // namespace quorvane
