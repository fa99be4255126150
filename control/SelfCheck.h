#pragma once

#include <functional>
#include <string>

#include "control/PortQuestions.h"
#include "control/SeenEvents.h"
#include "platform/Desktop.h"

namespace quorvane {

/// Onto the standard output, at once: should a question never be answered, this is what shows which.
void printLine(const std::string& line);

/// What this desktop answers to the program, a line for each fact, so that somebody who sits before it can
/// send what a bug report needs.
///
/// Each port is asked something harmless: nothing is written, selected, launched or shown. Events are counted
/// for a few seconds, in which the user may make some; then the program ends.
class SelfCheck {
public:
    using Tell = std::function<void(const std::string& line)>;
    /// What is known only to the desktop itself, asked for with the ports.
    using OwnFacts = std::function<void(const TellFact& tell)>;

    /// The desktop must outlive it.
    SelfCheck(Desktop& desktop, Tell tell, OwnFacts ownFacts);
    SelfCheck(const SelfCheck&) = delete;
    SelfCheck& operator=(const SelfCheck&) = delete;

    void start();

private:
    void finish();

    Desktop& desktop_;
    TellFact tell_;
    OwnFacts ownFacts_;
    SeenEvents events_;
};

} // namespace quorvane
