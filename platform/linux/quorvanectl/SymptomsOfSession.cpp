#include "platform/linux/quorvanectl/SymptomsOfSession.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <QDBusConnectionInterface>
#include <QStandardPaths>
#include <unistd.h>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "platform/linux/quorvanectl/LayoutKeepers.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// Programs that give each window or program a layout, as this one does.
constexpr std::array<std::string_view, 6> switchers = {"xxkb", "kbdd", "fbxkb", "xneur", "gxneur", "kxneur"};

std::vector<std::string> runningSwitchers() {
    std::vector<std::string> found;
    std::error_code error;
    for (const auto& process : fs::directory_iterator("/proc", error)) {
        std::string name;
        std::getline(std::ifstream(process.path() / "comm"), name);
        const bool isKnown = std::ranges::find(switchers, name) != switchers.end();
        if (isKnown && std::ranges::find(found, name) == found.end()) found.push_back(name);
    }
    return found;
}

bool hasStatusNotifierWatcher() {
    const auto bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.interface()->isServiceRegistered("org.kde.StatusNotifierWatcher");
}

bool hasOlderTray(XConnection& x) {
    const auto selection = x.atom("_NET_SYSTEM_TRAY_S" + std::to_string(x.screenNumber()));
    const XcbReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(x.xcb(), xcb_get_selection_owner(x.xcb(), selection), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

/// The layouts, separated by commas, in what some program last wrote when it set the keyboard: rules, model,
/// layouts, variants, options, each ended by a NUL.
std::size_t declaredLayouts(XConnection& x) {
    const auto names = XProperty(x, x.root(), "_XKB_RULES_NAMES").texts();
    constexpr std::size_t layouts = 2;
    if (names.size() <= layouts || names[layouts].empty()) return 0;
    return static_cast<std::size_t>(std::ranges::count(names[layouts], ',')) + 1;
}

void lookAtServer(Symptoms& symptoms) {
    const auto x = XConnection::open();
    symptoms.hasXServer = x != nullptr;
    if (!x) return;
    symptoms.hasTray = symptoms.hasTray || hasOlderTray(*x);
    symptoms.hasWindowManager = !XProperty(*x, x->root(), "_NET_SUPPORTING_WM_CHECK").values().empty();
    symptoms.declaredLayouts = declaredLayouts(*x);
}

/// That folder, or where it is to be made.
bool isWritable(fs::path folder) {
    std::error_code error;
    while (!fs::exists(folder, error) && folder.has_relative_path())
        folder = folder.parent_path();
    return ::access(folder.c_str(), W_OK) == 0;
}

} // namespace

Symptoms symptomsOfSession(AgentLink& agent) {
    Symptoms symptoms;
    symptoms.hasSessionBus = QDBusConnection::sessionBus().isConnected();
    symptoms.session = sessionThere();
    symptoms.hasTray = hasStatusNotifierWatcher();
    if (isOfX11(symptoms.session)) lookAtServer(symptoms);
    symptoms.inputMethod = qgetenv("QT_IM_MODULE").toStdString();
    if (symptoms.inputMethod.empty()) symptoms.inputMethod = qgetenv("GTK_IM_MODULE").toStdString();
    symptoms.otherSwitchers = runningSwitchers();
    symptoms.layoutKeeper =
        layoutKeeper(qEnvironmentVariable("XDG_CURRENT_DESKTOP"),
                     QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    const auto folder = LinuxUserDefaults::configFolder();
    symptoms.settingsFolder = folder.string();
    symptoms.isSettingsFolderWritable = !folder.empty() && isWritable(folder);
    if (const auto status = agent.run("status", {}); status && status->status == CommandStatus::done)
        symptoms.status = status->document;
    return symptoms;
}

} // namespace quorvane
