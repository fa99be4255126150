#pragma once

#include <optional>
#include <vector>

#include "virtual-desktop/RunningProgram.h"

namespace quorvane {

/// A window of a program of its own that records what its keyboard gets, each event with its time. Shown when
/// the constructor returns; ends with this object.
class WaylandWindow {
public:
    explicit WaylandWindow(const QString& title, const QString& applicationId = {});

    struct Event {
        qint64 time; ///< In microseconds, of the steady clock.
        QString what;
    };
    /// All so far: "shown", "enter", "leave", "group N", "text T", "token T".
    std::vector<Event> events();

    QString typed();           ///< The text of all keys so far.
    QString activationToken(); ///< The last that it was given, as it asks for when F1 is pressed; or none.
    std::optional<unsigned>
    group(); ///< Of its keys, since it got the keyboard. Nothing while it does not have it.

    qint64 processId() const { return program_.processId(); }

private:
    RunningProgram program_;
};

} // namespace quorvane
