#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QTimer>

#include "platform/linux/input-methods/ContextSelection.h"
#include "platform/linux/input-methods/InputMethodDaemon.h"
#include "platform/linux/input-methods/InputMethodIcons.h"
#include "platform/linux/keyboard/LayoutUnderneath.h"

namespace quorvane {

/// What daemons have in common: a list of what can be typed with, as they describe it, and a selection that
/// reaches contexts. What a daemon is told and asked is its own class's.
class DaemonInputSources : public InputMethodDaemon {
public:
    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

    bool isAvailable() const override { return isAvailable_; }

protected:
    /// An input method or a layout of the daemon's.
    struct Method {
        std::string id;        ///< As rules have it.
        std::string ownName;   ///< The daemon's.
        std::string humanName; ///< May be empty.
        InputMethodIcon icon;
        bool isHandedThrough = false; ///< It is that one layout.
    };

    /// Who types with keyboard layouts: the daemon itself, whatever the layout underneath is, but for one; or
    /// the X server, to which the daemon hands the keys through.
    enum class TypesLayouts { itself, server };

    /// The layouts must outlive this object.
    DaemonInputSources(LayoutSources& layouts, InputMethodIcons icons, TypesLayouts typesLayouts);

    /// What the daemon is asked to do for the selection, which hears of the outcome.
    virtual void callSelect(const std::string& ownName) = 0;
    virtual void callLook() = 0;

    /// The id of what the daemon calls so.
    virtual std::string idOf(const std::string& ownName) const = 0;

    ContextSelection& selection() { return selection_; }
    LayoutSources& layouts() const { return layouts_; }

    /// After whatever the selection was told.
    void selectionMoved();
    void activationSettles() { settling_.start(); }

    void setMethods(std::vector<Method> methods) { methods_ = std::move(methods); }
    void setAvailable(bool isAvailable);

private:
    const Method* methodWithID(std::string_view id) const;
    InputSource sourceOf(const std::string& id) const;
    bool isTypedByLayout() const;
    bool isHandedThrough(const std::string& id) const;
    void prepareUnderneath();
    void tellSelection();

    LayoutSources& layouts_;
    LayoutUnderneath underneath_;
    InputMethodIcons icons_;
    TypesLayouts typesLayouts_;
    bool isAvailable_ = false;
    std::vector<Method> methods_;
    ContextSelection selection_;
    std::string toldID_;                  ///< What observers know as the selected source.
    std::optional<std::string> prepared_; ///< The layout underneath has been, for this one of the daemon's.
    QTimer looks_, settling_;
    Subscription layoutChanges_;
};

} // namespace quorvane
