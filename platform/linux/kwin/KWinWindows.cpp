#include "platform/linux/kwin/KWinWindows.h"

#include <utility>

namespace quorvane {
namespace {

/// The panels and the background of Plasma are windows of this program.
constexpr std::string_view plasma = "plasmashell";

} // namespace

KWinWindows::KWinWindows(ShellMessages& messages, KWinScript& script, CompositorWindows& windows)
    : starts_(script.starts.connect([this, &windows] {
        isTellingAll_ = true;
        windows.tellingAnew();
    }))
    , changes_(messages.windowChanged.connect([&windows](WindowId window, CompositorWindow now) {
        now.facts.isPartOfDesktop = now.facts.wmClass == plasma;
        windows.changed(window, now);
    }))
    , closings_(messages.windowClosed.connect([&windows](WindowId window) { windows.closed(window); }))
    , activations_(messages.windowActivated.connect([this, &windows](WindowId window) {
        windows.activated(window);
        if (std::exchange(isTellingAll_, false)) windows.toldAll();
    })) {}

} // namespace quorvane
