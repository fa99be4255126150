#pragma once

#include <functional>
#include <utility>

#include "platform/Processes.h"

namespace quorvane {

class MacProcesses : public Processes {
public:
    /// `beforeExit` saves what must not be lost with the process.
    explicit MacProcesses(std::function<void()> beforeExit) : beforeExit_(std::move(beforeExit)) {}

    /// What makes `/usr/bin/open` start one more instance of this program.
    static std::vector<std::string> relaunchArguments();

    void system(const std::string& command) override;
    void launch(const std::string& path, const std::vector<std::string>& arguments) override;
    void exit(int status) override;

private:
    std::function<void()> beforeExit_;
};

} // namespace quorvane
