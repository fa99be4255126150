#pragma once

#include <optional>

#include "virtual-desktop/WaylandServer.h"
#include "virtual-desktop/WlrootsKeyboard.h"

namespace quorvane {

/// sway. Its SWAYSOCK is set, too.
class SwayServer : public WaylandServer {
public:
    /// `configuration`: lines for its file, which a reload reads again.
    explicit SwayServer(const QByteArray& configuration = {});
    ~SwayServer() override;

    void reload();                           ///< As when the user has changed the file.
    static void run(const QString& command); ///< As with swaymsg.

    QStringList namesInFront() override;
    QRect place(const QString& window) override;
    void move(const QString& window, const QRect& place) override;
    unsigned layout() override;
    void selectLayout(unsigned layout) override;
    void saveScreenshot(const QString& path) override;

private:
    void launch() override;
    void ask(const QString& windowToActivate) override;
    void send(std::uint8_t keycode, bool isPressed) override { keyboard_->send(keycode, isPressed); }

    QString path(const char* name) const { return runFolder() + "/sway." + name; }

    std::optional<WlrootsKeyboard> keyboard_;
};

} // namespace quorvane
