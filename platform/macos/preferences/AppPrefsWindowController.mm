#import "platform/macos/preferences/AppPrefsWindowController.h"

#include <string_view>

#include "platform/PreferencesInterface.h"
#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/preferences/PreferencesTables.h"

using quorvane::callProgram;
using quorvane::PreferencesActions;

@implementation AppPrefsWindowController

- (void)call:(void (PreferencesActions::*)())action {
    if (_actions) callProgram([&] { (_actions->*action)(); });
}

- (void)openLink:(std::string_view)action {
    if (_actions) callProgram([&] { _actions->openLink(action); });
}

// Tabs.

- (void)Rules:(id)sender {
    [self call:&PreferencesActions::Rules];
}

- (void)Preference:(id)sender {
    [self call:&PreferencesActions::Preference];
}

- (void)Learn:(id)sender {
    [self call:&PreferencesActions::Learn];
}

- (void)FreeApps:(id)sender {
    [self call:&PreferencesActions::FreeApps];
}

- (void)Contactus:(id)sender {
    [self call:&PreferencesActions::Contactus];
}

// Rules.

- (void)defaultInputChanged:(id)sender {
    [self call:&PreferencesActions::defaultInputChanged];
}

- (void)AddApplication:(id)sender {
    [self call:&PreferencesActions::AddApplication];
}

- (void)RemoveApplication:(id)sender {
    [self call:&PreferencesActions::RemoveApplication];
}

- (void)mouseDownByApplication:(id)sender {
    [self call:&PreferencesActions::mouseDownByApplication];
}

- (void)RemoveLocation:(id)sender {
    [self call:&PreferencesActions::RemoveLocation];
}

- (void)mouseDownByLocation:(id)sender {
    [self call:&PreferencesActions::mouseDownByLocation];
}

- (void)startOrStopSetUpButtonClick:(id)sender {
    [self call:&PreferencesActions::startOrStopSetUpButtonClick];
}

// Links.

- (void)QQExchangeGroup:(id)sender {
    [self openLink:"QQExchangeGroup"];
}

- (void)technicalSupport:(id)sender {
    [self openLink:"technicalSupport"];
}

- (void)feedbackOfSwitchLocation:(id)sender {
    [self openLink:"feedbackOfSwitchLocation"];
}

- (void)moreFreeApps:(id)sender {
    [self openLink:"moreFreeApps"];
}

- (void)instructionsForChangedInputByLocation:(id)sender {
    [self openLink:"instructionsForChangedInputByLocation"];
}

- (void)gotoQuorvane:(id)sender {
    [self openLink:"gotoQuorvane"];
}

- (void)gotoQuorvanePro:(id)sender {
    [self openLink:"gotoQuorvanePro"];
}

- (void)TeachingVideo:(id)sender {
    [self openLink:"TeachingVideo"];
}

- (void)FAQDocument:(id)sender {
    [self openLink:"FAQDocument"];
}

- (void)gotoOfficialWebsite:(id)sender {
    [self openLink:"gotoOfficialWebsite"];
}

- (void)privacyPolicy:(id)sender {
    [self openLink:"privacyPolicy"];
}

- (void)termsOfUse:(id)sender {
    [self openLink:"termsOfUse"];
}

// Tables.

/// Null for a table that is none of the window's, which has no rows.
- (quorvane::MacTableView*)tableOf:(NSTableView*)native {
    return _tables ? _tables->of(native) : nullptr;
}

- (NSInteger)numberOfRowsInTableView:(NSTableView*)tableView {
    return _tables ? callProgram([&] { return _tables->numberOfRows(tableView); }) : 0;
}

- (NSView*)tableView:(NSTableView*)tableView viewForTableColumn:(NSTableColumn*)column row:(NSInteger)row {
    auto* table = [self tableOf:tableView];
    return table ? callProgram([&] { return table->viewForTableColumn(column, row); }) : nil;
}

- (CGFloat)tableView:(NSTableView*)tableView heightOfRow:(NSInteger)row {
    const auto* table = [self tableOf:tableView];
    return table ? callProgram([&] { return table->heightOfRow(row); }) : 1;
}

- (BOOL)tableView:(NSTableView*)tableView
    writeRowsWithIndexes:(NSIndexSet*)rows
            toPasteboard:(NSPasteboard*)pasteboard {
    auto* table = [self tableOf:tableView];
    return table && callProgram([&] { return table->writeRows(rows, pasteboard, self); });
}

- (NSDragOperation)tableView:(NSTableView*)tableView
                validateDrop:(id<NSDraggingInfo>)info
                 proposedRow:(NSInteger)row
       proposedDropOperation:(NSTableViewDropOperation)operation {
    const auto* table = [self tableOf:tableView];
    return table ? callProgram([&] { return table->validateDrop(operation); }) : NSDragOperationNone;
}

- (BOOL)tableView:(NSTableView*)tableView
       acceptDrop:(id<NSDraggingInfo>)info
              row:(NSInteger)row
    dropOperation:(NSTableViewDropOperation)operation {
    auto* table = [self tableOf:tableView];
    return table && callProgram([&] { return table->acceptDrop(info, row); });
}

// A table sends its action for the mouse only.
- (void)tableViewSelectionDidChange:(NSNotification*)notification {
    NSTableView* table = notification.object;
    [table sendAction:table.action to:table.target];
}

- (BOOL)control:(NSControl*)control textShouldEndEditing:(NSText*)fieldEditor {
    return !_tables || callProgram([&] { return _tables->textShouldEndEditing(control, fieldEditor); });
}

- (NSString*)titleOfAppWithBundleIdentifier:(NSString*)bundleIdentifier {
    return [NSBundle bundleWithIdentifier:bundleIdentifier].infoDictionary[@"CFBundleExecutable"];
}

@end
