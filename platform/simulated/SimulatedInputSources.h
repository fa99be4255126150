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
    SimulatedInputSources(Journal& journal, SimulatedDistributedNotificationCenter& notifications)
        : journal_(journal)
        , notifications_(notifications) {}

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

    std::map<std::string, std::string> names; ///< By source id; the id itself where none is given.
    std::map<std::string, ImageRef> icons;    ///< By source id, for sources with an icon reference.
    bool refusesSelections = false;

private:
    std::vector<InputSource> sourcesOf(std::optional<std::string_view> id) const;

    Journal& journal_;
    SimulatedDistributedNotificationCenter& notifications_;
    std::vector<InputSource> sources_;
    std::string currentID_;
};

} // namespace quorvane
