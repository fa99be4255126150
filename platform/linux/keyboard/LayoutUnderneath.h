#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/linux/keyboard/LayoutSources.h"

namespace quorvane {

/// The keyboard's layout under an input method. Input methods read letters of the Latin alphabet, and
/// programs that know no input methods have nothing but the layout. Nobody's list of layouts is changed.
class LayoutUnderneath {
public:
    explicit LayoutUnderneath(LayoutSources& layouts) : layouts_(layouts) {}

    /// Whether the keyboard has that layout now.
    bool has(std::string_view id) const { return !layouts_.createInputSourceList(id).empty(); }

    /// Before the source of this id is selected: its own layout if it is one that the server has, else the
    /// first one with Latin letters.
    void prepareFor(std::string_view id);

    /// Whether what is typed now is letters that an input method reads.
    bool isLatin() const;

    /// The id of the first layout with Latin letters; empty when there is none.
    std::string firstLatin() const;

private:
    bool isLatin(const std::string& id) const;

    LayoutSources& layouts_;
    mutable std::map<std::string, bool>
        isLatin_; ///< By id, those that were asked for: it takes milliseconds.
};

} // namespace quorvane
