#include "platform/linux/quorvanectl/Doctor.h"

namespace quorvane {
namespace {

constexpr std::size_t mostLayouts = 4;

constexpr const char* noTray = "there is no tray for the status item";
constexpr const char* noTrayRemedy =
    "add one to your panel; without it, launch Quorvane once more to see its window";

std::string text(const PropertyList& value) {
    const auto* string = value.string();
    return string ? *string : std::string();
}

void lookAtDesktop(const Symptoms& symptoms, std::vector<Finding>& findings) {
    const auto add = [&](const char* problem, const char* remedy) { findings.push_back({problem, remedy}); };
    if (symptoms.session == SessionKind::otherWayland)
        add("this Wayland compositor offers no way: only programs that use X11 are switched",
            "log in to sway, KDE Plasma or GNOME, or to an X11 (Xorg) session");
    if (!isOfX11(symptoms.session)) {
        if (!symptoms.hasTray) add(noTray, noTrayRemedy);
        return;
    }
    if (!symptoms.hasXServer) {
        add("no X server can be reached", "run this in your desktop session, with DISPLAY set");
        return;
    }
    if (!symptoms.hasWindowManager)
        add("there is no window manager that tells which window is active",
            "start one that follows EWMH, as nearly all do");
    if (!symptoms.hasTray) add(noTray, noTrayRemedy);
    if (symptoms.declaredLayouts > mostLayouts)
        add("more than four keyboard layouts are set: the X server keeps the first four",
            "remove some in your desktop's keyboard settings, or use IBus or Fcitx5");
}

void lookAtInputMethod(const Symptoms& symptoms, std::vector<Finding>& findings) {
    if (!symptoms.status || text((*symptoms.status)["provider"]) != "X11") return;
    if (symptoms.inputMethod == "ibus")
        findings.push_back({"programs are told to use IBus, which does not answer",
                            "ibus-daemon --replace --daemonize --xim"});
    if (symptoms.inputMethod == "fcitx" || symptoms.inputMethod == "fcitx5")
        findings.push_back({"programs are told to use Fcitx5, which does not answer", "fcitx5 --replace -d"});
}

void lookAtProgram(const Symptoms& symptoms, std::vector<Finding>& findings) {
    if (!symptoms.hasSessionBus)
        findings.push_back({"there is no session bus: input methods, quorvanectl and the companion need it",
                            "start your session with dbus-run-session, or install dbus-user-session"});
    if (!symptoms.status) {
        if (symptoms.hasSessionBus)
            findings.push_back({"Quorvane does not run", "start it from the menu, or: quorvane &"});
        return;
    }
    if ((*symptoms.status)["isPaused"].boolValue())
        findings.push_back({"switching is paused", "quorvanectl resume"});
    const auto* refused = (*symptoms.status)["refusedShortcuts"].array();
    for (const auto& source : refused ? *refused : PropertyList::Array{})
        findings.push_back({"another program has the hot key of " + text(source["name"]),
                            "quorvanectl shortcut " + text(source["identifier"]) + " KEYS"});
    if (const auto trouble = text((*symptoms.status)["settingsTrouble"]); !trouble.empty())
        findings.push_back({trouble, "see to the folder's owner, its permissions, and the space left"});
}

} // namespace

std::vector<Finding> diagnose(const Symptoms& symptoms) {
    std::vector<Finding> findings;
    lookAtProgram(symptoms, findings);
    lookAtDesktop(symptoms, findings);
    lookAtInputMethod(symptoms, findings);
    for (const auto& switcher : symptoms.otherSwitchers)
        findings.push_back({switcher + " runs, and switches layouts, too", "let only one of the two do it"});
    if (!symptoms.layoutKeeper.empty())
        findings.push_back(
            {symptoms.layoutKeeper + " keeps a layout for each window or program, and puts it back",
             "have it keep one layout for all of them"});
    if (!symptoms.isSettingsFolderWritable)
        findings.push_back(
            {symptoms.settingsFolder + " cannot be written", "chown and chmod it to be yours"});
    return findings;
}

} // namespace quorvane
