#pragma once

#import "platform/macos/AppKit.h"

namespace quorvane {
class PreferencesActions;
class PreferencesTables;
} // namespace quorvane

/// Receives what the widgets and tables of the preferences window tell, and hands it on to the program. It
/// keeps the window.
@interface AppPrefsWindowController
    : NSWindowController <NSTableViewDataSource, NSTableViewDelegate, NSTextFieldDelegate>

// Both are not owned. While they are null, nobody is told of anything and every table is empty.
@property(nonatomic, nullable) quorvane::PreferencesActions* actions;
@property(nonatomic, nullable) quorvane::PreferencesTables* tables;

- (void)Rules:(nullable id)sender;
- (void)Preference:(nullable id)sender;
- (void)Learn:(nullable id)sender;
- (void)FreeApps:(nullable id)sender;
- (void)Contactus:(nullable id)sender;

- (void)defaultInputChanged:(nullable id)sender;
- (void)AddApplication:(nullable id)sender;
- (void)RemoveApplication:(nullable id)sender;
- (void)mouseDownByApplication:(nullable id)sender;
- (void)RemoveLocation:(nullable id)sender;
- (void)mouseDownByLocation:(nullable id)sender;
- (void)startOrStopSetUpButtonClick:(nullable id)sender;

- (void)QQExchangeGroup:(nullable id)sender;
- (void)technicalSupport:(nullable id)sender;
- (void)feedbackOfSwitchLocation:(nullable id)sender;
- (void)moreFreeApps:(nullable id)sender;
- (void)instructionsForChangedInputByLocation:(nullable id)sender;
- (void)gotoQuorvane:(nullable id)sender;
- (void)gotoQuorvanePro:(nullable id)sender;
- (void)TeachingVideo:(nullable id)sender;
- (void)FAQDocument:(nullable id)sender;
- (void)gotoOfficialWebsite:(nullable id)sender;
- (void)privacyPolicy:(nullable id)sender;
- (void)termsOfUse:(nullable id)sender;

/// The executable of an application, as its bundle names it; nil unless it is loaded in this process.
- (nullable NSString*)titleOfAppWithBundleIdentifier:(nonnull NSString*)bundleIdentifier;

@end
