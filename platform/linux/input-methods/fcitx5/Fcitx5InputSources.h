#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <QTimer>

#include "platform/linux/files/FolderWatch.h"
#include "platform/linux/input-methods/InputMethodDaemon.h"
#include "platform/linux/input-methods/InputMethodIcons.h"
#include "platform/linux/input-methods/LayoutUnderneath.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Controller.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5InputMethods.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Names.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Selection.h"

namespace quorvane {

/// The input methods of Fcitx5's current group. Each context of each program has its own, and a selection
/// changes that of the application in front, once it has one.
///
/// Fcitx5's keyboard layouts work in its clients whatever the X server's layout is, except the first one of
/// the group, which leaves keys to the X server. So the X server has the same layout always, which is also
/// what programs without a context are typed with.
class Fcitx5InputSources : public InputMethodDaemon {
public:
    /// The layouts must outlive this object.
    Fcitx5InputSources(const QDBusConnection& bus, LayoutSources& layouts, InputMethodIcons icons);

    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

    std::string_view name() const override { return "Fcitx5"; }
    std::string_view idPrefix() const override { return fcitx5IdPrefix; }
    bool isAvailable() const override { return isAvailable_; }
    bool isStartedAnew() const override { return controller_.isStartedAnew(); }
    void applicationActivated(const std::string& application, int process) override;

    /// The application in front has another window there, of that process. It may have an input method of its
    /// own.
    void windowActivated(int process);

    /// The user has done something that input methods are changed by, like releasing a modifier key or
    /// clicking. In some programs that is the only hint.
    void userMayHaveSwitched();

private:
    void watchSettings();
    void readGroup();
    void groupRead(Fcitx5Group group);
    void setGroup(Fcitx5Group group);
    void setAvailable(bool isAvailable);
    void ask(unsigned number, const std::string& inputMethod);
    void selectionMoved();
    void tellSelection();
    const Fcitx5InputMethod& described(const InputSource& source) const;

    LayoutSources& layouts_;
    LayoutUnderneath underneath_;
    InputMethodIcons icons_;

    bool isAvailable_ = false;
    Fcitx5Group group_;
    std::map<std::string, Fcitx5InputMethod> described_; ///< The group's, by Fcitx5's own names.
    Fcitx5Selection selection_;
    std::string toldID_; ///< What observers know as the selected source.
    QTimer due_;
    Fcitx5ContextNews news_;

    std::optional<FolderWatch> settings_; ///< From when the daemon was first alive.
    Fcitx5Controller controller_;
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
