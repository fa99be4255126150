#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/linux/input-methods/InputMethodDaemon.h"
#include "platform/linux/keyboard/LayoutSources.h"
#include "platform/linux/keyboard/LayoutUnderneath.h"

namespace quorvane {

/// The input sources of the user's session: those of the first input method daemon that is available, else
/// the keyboard's layouts. Chosen anew whenever a daemon comes, hangs or goes.
///
/// While there is none, an input method that a daemon has listed before can be selected all the same: the
/// layout underneath is, until the daemon is there. One that no daemon has listed yet changes nothing until
/// one does.
class SessionInputSources : public TextInputSources {
public:
    /// `session` is the name of what has the layouts: "X11". `daemons` are in the order in which they are
    /// preferred. All must outlive this object.
    SessionInputSources(std::string session, LayoutSources& layouts, std::vector<InputMethodDaemon*> daemons);
    SessionInputSources(const SessionInputSources&) = delete;
    SessionInputSources& operator=(const SessionInputSources&) = delete;

    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

    /// See `InputMethodDaemon`.
    void applicationActivated(const std::string& application, int process);

    /// Whose sources they are now: the name of a daemon, or of the session.
    std::string_view provider() const;

    /// Another source is selected now.
    Signal<> selectionChanged;

private:
    TextInputSources* firstAvailable() const;
    void chooseAgain();
    bool isStartedAnew() const;
    bool isOfDaemon(std::string_view id) const;
    bool isAwaited(std::string_view id) const { return chosen_ == &layouts_ && isOfDaemon(id); }
    void remember(const std::vector<InputSource>& list) const;
    void await(const std::string& id);
    void selectAgain();
    void changed(const TextInputSources& where);

    std::string session_;
    LayoutSources& layouts_;
    LayoutUnderneath underneath_;
    std::vector<InputMethodDaemon*> daemons_;
    TextInputSources* chosen_;
    std::string selectedID_; ///< The last selection, by the program or the user; empty before the first.
    mutable std::set<std::string, std::less<>> listed_; ///< By daemons, ever; no layouts.
    std::string awaitedLayout_; ///< What is selected while that one's daemon is awaited; else empty.
    bool isMissed_ = false;     ///< No daemon knows what was selected since the last activation.
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
