#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/dbus/BusMonitor.h"
#include "platform/linux/dbus/DaemonConnection.h"
#include "platform/linux/files/FolderWatch.h"
#include "platform/linux/input-methods/DaemonInputSources.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Answers.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Names.h"

namespace quorvane {

/// The input methods of Fcitx5's current group. Each context of each program has its own, and a selection
/// changes that of the application in front, once it has one.
///
/// Contexts of programs that use Fcitx5 by D-Bus are told what they are typed with, and this listens in: to
/// that signal, and to who makes contexts, which has nothing of what is typed. For the others Fcitx5 is
/// asked.
///
/// Its keyboard layouts work in its clients whatever the X server's layout is, except the group's own
/// one, for which it leaves keys to the X server. So the X server is given the same layout with each
/// selection, which is also what programs without a context are typed with.
class Fcitx5InputSources final : public DaemonInputSources {
public:
    /// The layouts must outlive this object.
    Fcitx5InputSources(LayoutSources& layouts, InputMethodIcons icons);

    std::string_view name() const override { return "Fcitx5"; }
    std::string_view idPrefix() const override { return fcitx5IdPrefix; }
    bool isStartedAnew() const override { return connection_.isStartedAnew(); }
    void applicationActivated(const std::string& application, int process) override;

    /// The application in front has another window there, of that process. It may have an input method of its
    /// own.
    void windowActivated(int process);

    /// The user has done something that input methods are changed by, like releasing a modifier key or
    /// clicking. In some programs that is the only hint.
    void userMayHaveSwitched();

private:
    void callSelect(const std::string& ownName) override;
    void callLook() override;
    std::string idOf(const std::string& ownName) const override { return idOfFcitx5InputMethod(ownName); }

    void cameAlive();
    void readGroup();
    void groupRead(const Fcitx5Group& group);
    void heard(const BusMonitor::Message& message);
    void told(const BusMonitor::Message& signal);
    void looked(const Fcitx5Focus& focus, const std::string& inputMethod);

    std::map<std::string, Fcitx5InputMethod> described_; ///< By Fcitx5's own names; those of groups so far.
    Fcitx5Focus focus_{.isUnderstood = true, .context = {}}; ///< As it was told last.
    unsigned news_ = 0;                                      ///< That contexts have had from this daemon.
    std::optional<FolderWatch> settings_;                    ///< From when the daemon was first alive.
    DaemonConnection connection_;
    BusMonitor monitor_;
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
