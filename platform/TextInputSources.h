#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Image.h"

namespace quorvane {

/// The distributed notification that tells of every change of the selected input source, whoever made it.
/// May come twice for one change.
inline constexpr std::string_view selectedKeyboardInputSourceChangedNotification =
    "com.apple.Carbon.TISNotifySelectedKeyboardInputSourceChanged";

enum class InputSourceCategory { keyboard, other };

/// One keyboard layout or input method, as the desktop describes it.
struct InputSource {
    std::string id; ///< Stable: rules are stored by it.
    InputSourceCategory category = InputSourceCategory::keyboard;
    bool isSelectCapable = true;
    bool hasIconReference = false; ///< The desktop itself draws the icon.
    std::string iconImageURL;      ///< Empty when there is none.

    bool operator==(const InputSource&) const = default;
};

/// The keyboard input sources of the desktop. They may come and go with a daemon behind them, and a selection
/// may take effect later, or only in the program that has the focus: `selectInputSource` is a request, and
/// whoever wants to know waits for the notification above.
class TextInputSources {
public:
    virtual ~TextInputSources() = default;

    /// The enabled sources, in the user's order; with an id, only those that have it. May be empty.
    virtual std::vector<InputSource> createInputSourceList(std::optional<std::string_view> id = {}) const = 0;

    virtual std::optional<InputSource> copyCurrentKeyboardInputSource() const = 0;

    /// The layout behind the current source: an input method's own, where it has one.
    virtual std::optional<InputSource> copyCurrentKeyboardLayoutInputSource() const = 0;

    /// False when the desktop refused at once.
    virtual bool selectInputSource(const InputSource& source) = 0;

    /// The name the user knows the source by, in the user's language. Asked for only where it is shown.
    virtual std::string localizedName(const InputSource& source) const = 0;

    /// The picture behind a source's icon reference; null when it cannot be made.
    virtual ImageRef iconOfReference(const InputSource& source) const = 0;
};

} // namespace quorvane
