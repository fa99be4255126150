#include "app/LoginItemsReminder.h"

#include "settings/Keys.h"

namespace quorvane {

void LoginItemsReminder::showIfNeeded() {
    if (standard_.boolForKey(key::notNeedRemindForAutoStartAtLogin)) return;
    const auto answer = alerts_.runModal({
        .messageText = application_.localizedString("Warm Reminder"),
        .informativeText = application_.localizedString(
            "If you don't want Quorvane preference window to appear when the computer is turned on, please "
            "remove it from \"System Preferences>Users and Groups>Login Items\". This operation does not "
            "affect auto start at login."),
        .buttons = {application_.localizedString("OK"), application_.localizedString("Cancel")},
        .suppressionButtonTitle = application_.localizedString("Don't remind me next time"),
    });
    if (answer.response != alertFirstButtonReturn) return;
    if (answer.suppressionButtonIsOn) {
        standard_.setBool(true, key::notNeedRemindForAutoStartAtLogin);
        standard_.synchronize();
    }
    processes_.system(loginItemsCommand_);
}

} // namespace quorvane
