#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/TextInputSources.h"
#include "platform/macos/Apple.h"

namespace quorvane {

/// The input sources of Text Input Sources Services. Main thread only. Sources that the system describes
/// without an id are left out. A selection acts at once; where an input method is concerned, the program in
/// front may take it only when the keyboard focus comes to it anew.
class TISInputSources : public TextInputSources {
public:
    using DrawIcon = std::function<ImageRef(IconRef icon)>;

    /// `drawIcon` makes a picture of an icon, which is valid during the call.
    explicit TISInputSources(DrawIcon drawIcon);

    std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const override;
    std::optional<InputSource> copyCurrentKeyboardInputSource() const override;
    std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const override;
    bool selectInputSource(const InputSource& source) override;
    std::string localizedName(const InputSource& source) const override;
    ImageRef iconOfReference(const InputSource& source) const override;

private:
    DrawIcon drawIcon_;
};

} // namespace quorvane
