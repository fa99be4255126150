#pragma once

#include <string>
#include <vector>

#include "platform/linux/input-methods/InputMethodDaemon.h"
#include "platform/linux/keyboard/XkbInputSources.h"

namespace quorvane {

/// The input sources of the user's session: those of the first input method daemon that is available, else
/// the X server's layouts. Chosen anew whenever a daemon comes, hangs or goes.
class SessionInputSources : public TextInputSources {
public:
    /// `daemons` are in the order in which they are preferred. All must outlive this object.
    SessionInputSources(XkbInputSources& layouts, std::vector<InputMethodDaemon*> daemons);
    SessionInputSources(const SessionInputSources&) = delete;
    SessionInputSources& operator=(const SessionInputSources&) = delete;

    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

    /// Another application has come to the front.
    void applicationActivated();

    /// Another source is selected now.
    Signal<> selectionChanged;

private:
    TextInputSources* firstAvailable() const;
    void chooseAgain();
    bool hasForgotten(const TextInputSources* sources) const;
    void selectAgain();
    void changed(const TextInputSources& where);

    XkbInputSources& layouts_;
    std::vector<InputMethodDaemon*> daemons_;
    TextInputSources* chosen_;
    std::string selectedID_; ///< The last selection, by the program or the user; empty before the first.
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
