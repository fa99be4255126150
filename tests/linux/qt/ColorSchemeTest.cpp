#include <QApplication>
#include <QPalette>
#include <gtest/gtest.h>

#include "linux/support/Portal.h"
#include "platform/linux/appearance/ColorScheme.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

/// Settings with a number, a colour and the theme's name.
std::string settingsBytes(const std::string& theme) {
    std::string bytes("\0\0\0\0\7\0\0\0\3\0\0\0"
                      "\0\0\3\0Num\0\1\0\0\0\5\0\0\0"
                      "\2\0\3\0Col\0\1\0\0\0\1\2\3\4\5\6\7\x8"
                      "\1\0\xd\0Net/ThemeName\0\0\0\1\0\0\0",
                      12 + 16 + 20 + 24);
    bytes += std::string{char(theme.size()), 0, 0, 0} + theme;
    return bytes.append((4 - theme.size() % 4) % 4, '\0');
}

/// A settings manager that comes with a theme, and goes with its connection.
class SettingsManager {
public:
    explicit SettingsManager(const std::string& theme) {
        xcb_create_window(x_->xcb(), 0, window_, x_->root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0,
                          nullptr);
        setTheme(theme);
        const auto selection = x_->atom("_XSETTINGS_S0");
        xcb_set_selection_owner(x_->xcb(), window_, selection, XCB_CURRENT_TIME);
        xcb_client_message_event_t announcement{};
        announcement.response_type = XCB_CLIENT_MESSAGE;
        announcement.format = 32;
        announcement.window = x_->root();
        announcement.type = x_->atom("MANAGER");
        announcement.data.data32[1] = selection;
        xcb_send_event(x_->xcb(), 0, x_->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&announcement));
    }
    void setTheme(const std::string& theme) {
        const auto bytes = settingsBytes(theme);
        const auto name = x_->atom("_XSETTINGS_SETTINGS");
        xcb_change_property(x_->xcb(), XCB_PROP_MODE_REPLACE, window_, name, name, 8,
                            static_cast<std::uint32_t>(bytes.size()), bytes.data());
    }

private:
    std::unique_ptr<XConnection> x_ = XConnection::open();
    xcb_window_t window_ = xcb_generate_id(x_->xcb());
};

bool becomes(bool dark) {
    return waitUntil([=] { return (QApplication::palette().window().color().lightness() < 128) == dark; });
}

TEST(ColorScheme, IsThePortalsOrElseTheThemes) {
    const auto x = XConnection::open();
    std::optional<Portal> portal(1);
    std::optional<ColorScheme> scheme(x.get());
    EXPECT_TRUE(becomes(true)) << "at start";
    for (const unsigned now : {2U, 1U, 0U})
        EXPECT_TRUE((portal->change(now), becomes(now == 1))) << now;
    portal.reset();
    scheme.emplace(x.get());
    std::optional<SettingsManager> manager("Greybird-dark");
    EXPECT_TRUE(becomes(true)) << "a manager that comes later";
    for (const auto* theme : {"Greybird", "Adwaita-Dark", "Ark", "dark"}) {
        manager->setTheme(theme);
        EXPECT_TRUE(becomes(QString(theme).endsWith("dark", Qt::CaseInsensitive))) << theme;
    }
    portal.emplace(2);
    EXPECT_TRUE(becomes(false)) << "a portal that comes later";
    portal->change(0);
    EXPECT_TRUE(becomes(true)) << "a portal without preference";
    manager.reset();
    EXPECT_TRUE(becomes(false)) << "no manager any more";
}

TEST(XSettings, AreReadAsFarAsTheyGo) {
    const auto bytes = settingsBytes("Any");
    EXPECT_EQ(textOfXSettings(bytes, "Net/ThemeName"), "Any");
    EXPECT_EQ(textOfXSettings(bytes, "Num"), std::nullopt);
    const std::string bigEndian("\1\0\0\0\0\0\0\0\0\0\0\1\1\0\0\1N\0\0\0\0\0\0\0\0\0\0\2ab\0\0", 32);
    EXPECT_EQ(textOfXSettings(bigEndian, "N"), "ab");
    for (std::size_t length = 0; length < bytes.size() - 1; ++length)
        EXPECT_EQ(textOfXSettings({bytes.data(), length}, "Net/ThemeName"), std::nullopt) << length;
}

} // namespace
} // namespace quorvane
