#pragma once

#include "platform/Signal.h"
#include "platform/TextInputSources.h"

namespace quorvane {

/// The input sources of an input method framework, which is a process of its own: it may be missing, hang,
/// die and come back. Nothing here waits for it. What it last told is what this object answers, and a
/// selection counts as made until it says otherwise.
///
/// Keyboard layouts have the ids that they have without a daemon, like `xkb:ru:phonetic`, so that a rule
/// means the same with and without one.
class InputMethodDaemon : public TextInputSources {
public:
    /// Of the framework.
    virtual std::string_view name() const = 0;

    /// What the ids of its input methods begin with.
    virtual std::string_view idPrefix() const = 0;

    /// Whether it is there and answers.
    virtual bool isAvailable() const = 0;

    /// Whether its process is another one than when it was last available, which knows nothing of what was
    /// selected. Otherwise it only hung.
    virtual bool isStartedAnew() const = 0;

    /// Another application, of that bundle identifier, has come to the front, with a window of that process;
    /// 0 when that is not known. What should be selected in it is told right after, or nothing is.
    virtual void applicationActivated(const std::string& application, int process) = 0;

    Signal<> availabilityChanged;
    Signal<> selectionChanged; ///< Another source is selected now, whoever selected it.
};

} // namespace quorvane
