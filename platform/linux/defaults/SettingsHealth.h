#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Signal.h"

namespace quorvane {

/// What is wrong with keeping the settings, as far as the user should know. Those who keep them in files tell
/// it; whoever shows it observes.
class SettingsHealth {
public:
    enum class Obstacle {
        lockedByAnotherProgram, ///< `place` is the file.
        cannotBeWritten,        ///< `place` is the folder, `detail` the system's own words.
    };
    struct Unsaved {
        Obstacle obstacle;
        std::string place;
        std::string detail;
        double since; ///< Seconds since 1970.
    };

    /// Why settings are not saved now: what they are stays in use, and is saved as soon as it can be. With
    /// several reasons, the oldest one. None: all are saved.
    std::optional<Unsaved> unsaved() const;

    /// Where the files are that were found damaged and replaced since the program started, oldest first.
    const std::vector<std::string>& setAside() const { return setAside_; }

    /// Calls the handler after each change of what this says.
    Subscription addObserver(std::function<void()> handler) { return changed_.connect(std::move(handler)); }

    // For those who keep the files.

    /// True when it is news: no other file has the same trouble.
    bool cannotSave(const std::string& file, Obstacle obstacle, std::string place, std::string detail);
    /// True when it ends the last trouble.
    bool saves(const std::string& file);
    void wasSetAside(std::string place);

private:
    std::map<std::string, Unsaved> unsaved_; // by file
    std::vector<std::string> setAside_;
    Signal<> changed_;
};

} // namespace quorvane
