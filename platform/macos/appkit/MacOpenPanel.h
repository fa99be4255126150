#pragma once

#include <functional>
#include <memory>

#include "platform/OpenPanel.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

class MacOpenPanel : public OpenPanel {
public:
    /// While the panel is open, another call brings it to the front and only its handler is called.
    void beginChoosingApplication(
        std::function<void(std::optional<std::string> bundleIdentifier)> completion) override;

private:
    using Completion = std::function<void(std::optional<std::string>)>;
    struct Choosing {
        NSOpenPanel* panel; ///< Nil while none is open.
        Completion completion;
    };

    /// Shared with the panel, which may be closed after this was destroyed.
    std::shared_ptr<Choosing> choosing_ = std::make_shared<Choosing>();
};

} // namespace quorvane
