#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/TextInputSources.h"
#include "platform/simulated/SimulatedDistributedNotificationCenter.h"

namespace quorvane {

/// Input sources that are enabled, disabled and selected by hand. Tells every change of the selected one.
class SimulatedInputSources : public TextInputSources {
public:
    explicit SimulatedInputSources(SimulatedDistributedNotificationCenter& notifications)
        : notifications_(notifications) {}

    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

    /// The user enables another source; the first one becomes the current one.
    void enable(InputSource source);
    void disable(std::string_view id);

    /// The user, or another program, selects a source; "" leaves none selected.
    void selectFromOutside(std::string_view id);

    std::string currentID() const { return currentID_; }

    /// The ids this program selected, oldest first, refused ones included.
    const std::vector<std::string>& selections() const { return selections_; }
    void forgetSelections() { selections_.clear(); }

    std::map<std::string, std::string> names; ///< By source id; the id itself where none is given.
    std::map<std::string, ImageRef> icons;    ///< By source id, for sources with an icon reference.
    bool refusesSelections = false;

private:
    SimulatedDistributedNotificationCenter& notifications_;
    std::vector<InputSource> sources_;
    std::string currentID_;
    std::vector<std::string> selections_;
};

} // namespace quorvane
