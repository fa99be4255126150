#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <QObject>

#include "platform/linux/keyboard/LayoutKeyboard.h"
#include "platform/linux/keyboard/LayoutSources.h"
#include "platform/linux/keyboard/XkbRegistry.h"

namespace quorvane {

/// The layouts of a session's keyboard as input sources: one for each group.
class LayoutInputSources : public LayoutSources {
public:
    using DrawIcon = std::function<ImageRef(const std::string& letters)>;

    /// `drawIcon` makes the template icon of a layout out of two letters. The keyboard must outlive this
    /// object.
    LayoutInputSources(LayoutKeyboard& keyboard, DrawIcon drawIcon);

    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

private:
    const KeyboardLayouts& layouts() const;
    std::string idOfGroup(unsigned group) const;
    const XkbLayoutNames& namesOf(const InputSource& source) const;
    void mapChanged();
    void keepSelectionAcrossMaps();
    void groupChanged(unsigned group);
    void tellSelection(std::string id);

    LayoutKeyboard& keyboard_;
    DrawIcon drawIcon_;

    // Read when first asked for after a change.
    mutable std::optional<KeyboardLayouts> layouts_;
    mutable std::optional<std::map<std::string, XkbLayoutNames>> names_; // by id

    std::string selectedID_; ///< What the user or this program last selected.
    std::string toldID_;     ///< What observers know as the selected source.
    bool mapChangePending_ = false;
    std::vector<XkbLayout> groupsBeforeChange_; // while a change is pending
    QObject later_;                             // the context of queued calls: they end with it
    Subscription groupChanges_;
    Subscription mapChanges_;
};

} // namespace quorvane
