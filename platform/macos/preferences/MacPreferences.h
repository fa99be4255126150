#pragma once

#include <memory>

#include "platform/NotificationCenter.h"
#include "platform/PreferencesInterface.h"
#import "platform/macos/AppKit.h"
#include "platform/macos/keyboard/CarbonHotKeys.h"

namespace quorvane {

/// The preferences window of this desktop, made in code.
class MacPreferences : public PreferencesInterface {
public:
    /// What the window needs of the desktop; all of it must outlive the window.
    struct Neighbours {
        NotificationCenter& notifications;
        CarbonHotKeys& hotKeys; ///< They rest while a shortcut is recorded.
    };

    explicit MacPreferences(const Neighbours& neighbours);
    MacPreferences(const MacPreferences&) = delete;
    MacPreferences& operator=(const MacPreferences&) = delete;
    ~MacPreferences() override;

    PreferencesOutlets outlets() override;
    void connect(PreferencesActions& actions, TableSource& source) override;

    NSWindow* nativeWindow() const;

private:
    struct Widgets;
    std::unique_ptr<Widgets> widgets_;
};

} // namespace quorvane
