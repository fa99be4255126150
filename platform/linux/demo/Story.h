#pragma once

#include <functional>
#include <string>

#include "platform/linux/demo/ProgramOnStage.h"

namespace quorvane {

/// Steps on a stage, each with its row in the table.
class Story {
public:
    explicit Story(Stage& stage) : stage_(stage) {}

    void heading(const char* what);

    /// `happen`s: it has to bring the source, and a word that is typed then has to arrive in the program.
    void show(const std::string& what, const std::string& wanted, const std::function<bool()>& happen,
              ProgramOnStage& program);

    /// Opens and closes the launcher, in front of a program with a rule for that source.
    void showLauncher(const std::string& sourceOfFront, const QString& picture);

    bool isAllRight() const { return isAllRight_; } ///< So far.

private:
    void row(const std::string& what, const std::string& wanted, const std::string& before, bool isRight,
             const std::string& typed);

    Stage& stage_;
    bool isAllRight_ = true;
};

} // namespace quorvane
