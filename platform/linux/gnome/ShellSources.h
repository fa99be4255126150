#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/linux/gnome/GnomeShell.h"
#include "platform/linux/input-methods/InputMethodIcons.h"
#include "platform/linux/keyboard/LayoutSources.h"
#include "platform/linux/keyboard/LayoutUnderneath.h"

namespace quorvane {

/// The input sources of GNOME Shell: layouts, and engines of IBus, which nobody but the shell may select.
///
/// What this program selects counts as selected at once. While the shell has not answered, what it tells of
/// other selections came before and does not count.
class ShellSources : public LayoutSources {
public:
    /// All must outlive this object.
    ShellSources(GnomeShell& shell, ShellMessages& messages, const InputMethodIcons& icons);

    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

private:
    const ShellSource* find(std::string_view id) const;
    void listChanged(const std::vector<ShellSource>& sources, const std::string& current);
    void currentChanged(const std::string& current);
    void answered();
    void tellLatin();

    GnomeShell& shell_;
    const InputMethodIcons& icons_;
    LayoutUnderneath underneath_{*this};
    std::vector<ShellSource> sources_;
    std::string current_;     ///< As far as this program knows, with what it has selected.
    std::string told_;        ///< As the shell has told last.
    std::string observed_;    ///< As observers know.
    unsigned unanswered_ = 0; ///< Selections.
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
