#pragma once

#include <functional>
#include <utility>

#include "platform/Processes.h"

namespace quorvane {

class LinuxProcesses : public Processes {
public:
    /// `beforeExit` saves what must not be lost with the process.
    explicit LinuxProcesses(std::function<void()> beforeExit) : beforeExit_(std::move(beforeExit)) {}

    void system(const std::string& command) override;
    void launch(const std::string& path, const std::vector<std::string>& arguments) override;
    void exit(int status) override;

private:
    std::function<void()> beforeExit_;
};

} // namespace quorvane
