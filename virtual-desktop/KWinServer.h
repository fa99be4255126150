#pragma once

#include <optional>

#include "virtual-desktop/KWinKeyboard.h"
#include "virtual-desktop/KWinScripts.h"
#include "virtual-desktop/ScriptedServer.h"

namespace quorvane {

/// KWin, as in a session of KDE Plasma.
class KWinServer : public ScriptedServer {
public:
    KWinServer();
    ~KWinServer() override;

    unsigned layout() override;
    void selectLayout(unsigned layout) override;
    void saveScreenshot(const QString& path) override;
    QJsonValue evaluate(const QString& expression) override { return scripts_.evaluate(expression); }

private:
    void launch() override;
    void send(std::uint8_t keycode, bool isPressed) override { keyboard_->send(keycode, isPressed); }

    QDBusMessage callLayouts(const QString& method, const QVariantList& arguments = {});

    QDBusConnection user_;
    KWinScripts scripts_;
    std::optional<KWinKeyboard> keyboard_;
};

} // namespace quorvane
