#import "platform/macos/preferences/LinkTabs.h"

#import "platform/macos/foundation/Localized.h"
#import "platform/macos/preferences/Parts.h"

namespace quorvane {
namespace {

NSView* makePage(NSArray<NSView*>* views) {
    return makeColumn(views, 16, NSEdgeInsetsMake(28, 60, 8, 60));
}

} // namespace

NSView* makeLearnTab(AppPrefsWindowController* target) {
    return makePage(@[
        makePageTitle(localized(@"Get the most out of Quorvane")),
        makeDescribedLink(localized(@"Tutorial video"),
                          localized(@"See in a few minutes what Quorvane can do for you."), target,
                          @selector(TeachingVideo:)),
        makeDescribedLink(localized(@"Frequently asked questions"),
                          localized(@"Short answers to what other people wanted to know."), target,
                          @selector(FAQDocument:)),
        makeDescribedLink(localized(@"Switch by location"),
                          localized(@"Different input sources for different places in one application."),
                          target, @selector(instructionsForChangedInputByLocation:)),
        makeSpace()
    ]);
}

NSView* makeFreeAppsTab(AppPrefsWindowController* target) {
    return makePage(@[
        makePageTitle(localized(@"More from the makers of Quorvane")),
        makeDescribedLink(localized(@"More free apps"),
                          localized(@"Small programs that make the day easier."), target,
                          @selector(moreFreeApps:)),
        makeDescribedLink(localized(@"Rate Quorvane"), localized(@"A review helps others to find it."),
                          target, @selector(gotoQuorvane:)),
        makeDescribedLink(localized(@"Rate Quorvane Pro"), localized(@"A review helps others to find it."),
                          target, @selector(gotoQuorvanePro:)),
        makeSpace()
    ]);
}

NSView* makeContactUsTab(AppPrefsWindowController* target) {
    return makePage(@[
        makePageTitle(localized(@"We are glad to hear from you")),
        makeDescribedLink(localized(@"Technical support"), localized(@"Ask a question or report a problem."),
                          target, @selector(technicalSupport:)),
        makeDescribedLink(localized(@"QQ user group"), localized(@"Talk with other users."), target,
                          @selector(QQExchangeGroup:)),
        makeDescribedLink(localized(@"Official website"), localized(@"News and downloads."), target,
                          @selector(gotoOfficialWebsite:)),
        makeSpace(), makeRow(@[
            makeLink(localized(@"Privacy policy"), target, @selector(privacyPolicy:)),
            makeLink(localized(@"Terms of use"), target, @selector(termsOfUse:))
        ])
    ]);
}

} // namespace quorvane
