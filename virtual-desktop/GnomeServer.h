#pragma once

#include <vector>

#include <QDBusConnection>

#include "virtual-desktop/LogindStandIn.h"
#include "virtual-desktop/ScriptedServer.h"

namespace quorvane {

/// GNOME Shell. Its settings, and those of other programs of GNOME, are a file of the user's then.
class GnomeServer : public ScriptedServer {
public:
    struct Extension {
        QString folder; ///< Whose files are copied.
        QString uuid;
    };

    /// With these extensions, turned on.
    explicit GnomeServer(const std::vector<Extension>& extensions = {});
    ~GnomeServer() override;

    void setOverview(bool isOpen); ///< Waits until it is.

    /// One of the user's settings, as `gsettings set` takes it.
    static void set(const QString& schema, const QString& key, const QString& value);

    unsigned layout() override;
    void selectLayout(unsigned layout) override;
    void saveScreenshot(const QString& path) override;
    QJsonValue evaluate(const QString& expression) override;

private:
    void launch() override;
    void send(std::uint8_t keycode, bool isPressed) override;

    LogindStandIn logind_;
    QDBusConnection user_;
};

} // namespace quorvane
