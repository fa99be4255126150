#include "platform/linux/demo/LauncherOfStage.h"

#include <stdexcept>

namespace quorvane {

void LauncherOfStage::open() {
    if (auto* gnome = stage_.gnome()) return gnome->setOverview(true);
    const auto menu = stage_.session().folders.write("menu", "Files\nLetters\nMail\nMusic\n");
    const QString command = "exec wofi --dmenu --prompt Search --width 440 --height 190"
                            " --location bottom_left --xoffset 30 --yoffset -30 < ";
    wofi_.emplace("sh", QStringList{"-c", command + menu});
}

QString LauncherOfStage::close() {
    if (auto* gnome = stage_.gnome()) {
        auto typed = gnome->evaluate("imports.ui.main.overview.searchEntry.get_text()").toString();
        gnome->setOverview(false);
        return typed;
    }
    constexpr std::uint8_t enter = 36;
    stage_.server().type({enter});
    if (!wofi_->waitForEnd()) throw std::runtime_error("wofi does not close");
    return wofi_->output().trimmed();
}

} // namespace quorvane
