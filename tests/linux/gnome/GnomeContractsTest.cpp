// The contracts of the ports, in GNOME Shell with our extension in it.

#include "linux/gnome/GnomeAgent.h"
#include "linux/wayland/SessionContracts.h"
#include "virtual-desktop/WaylandSession.h"

namespace quorvane {
namespace {

class GnomeSessionDesktop : public SessionDesktop {
public:
    WaylandServer& server() override { return server_; }
    SessionParts parts() override { return agent_->session.parts(); }
    void minimise(const QString& id) override { server_.evaluate("find('" + id + "').minimize()"); }
    void setLayouts(const QByteArray& layouts, const QByteArray& variants) override {
        QStringList sources;
        const auto each = variants.split(',');
        for (int place = 0; const auto& layout : layouts.split(',')) {
            const auto& variant = each[place++];
            sources << "('xkb','" + layout + (variant.isEmpty() ? "" : "+" + variant) + "')";
        }
        GnomeServer::set("org.gnome.desktop.input-sources", "sources", "[" + sources.join(',') + "]");
    }
    void takeKeys(const KeyCombination& /*combination*/) override {
        server_.evaluate("global.display.grab_accelerator('<Control>j', 0)");
    }
    void endSession() override { agent_.reset(); }
    bool hasOurs() override {
        const auto free = "(a => { if (a) global.display.ungrab_accelerator(a); return a !== 0; })"
                          "(global.display.grab_accelerator('F5', 0))";
        return !server_.evaluate(free).toBool();
    }
    void settle() override { server_.layout(); }

private:
    GnomeServer server_{ourExtension()};
    std::optional<GnomeAgent> agent_{std::in_place, applications};
};

std::unique_ptr<SessionDesktop> makeDesktop() {
    return std::make_unique<GnomeSessionDesktop>();
}

INSTANTIATE_TEST_SUITE_P(Gnome, TextInputSourcesContract, on<SessionSourcesBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Gnome, FrontWindowContract, on<SessionWindowListBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Gnome, WorkspaceContract, on<SessionWorkspaceBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Gnome, EmptyFrontContract, on<SessionWorkspaceBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Gnome, HotKeysContract, on<SessionHotKeysBench>(makeDesktop));

} // namespace
} // namespace quorvane
