#include "preferences/CompanionAlert.h"

#include "settings/Maker.h"

namespace quorvane {

void CompanionAlert::show() {
    alerts_.beginSheet(
        {.messageText = application_.localizedString(
             "\nThis function requires Tandrel support, please go to the official website to download. And "
             "Tandrel will make the input method switching faster and more stable."),
         .buttons = {application_.localizedString("Download"), application_.localizedString("Cancel")}},
        [this](const AlertAnswer& answer) {
            if (answer.response == alertFirstButtonReturn) links_.openURL(maker::companionDownloadPage);
        });
}

} // namespace quorvane
