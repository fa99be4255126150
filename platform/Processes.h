#pragma once

#include <string>
#include <vector>

namespace quorvane {

/// Starting other programs, and ending this one.
class Processes {
public:
    virtual ~Processes() = default;

    /// Runs a shell command and waits for it. Its status is nobody's concern.
    virtual void system(const std::string& command) = 0;

    /// Starts a program and does not wait for it. Nothing happens when it cannot be started.
    virtual void launch(const std::string& path, const std::vector<std::string>& arguments) = 0;

    /// Ends this process at once, without the normal way of termination. Only a simulated process returns.
    virtual void exit(int status) = 0;
};

} // namespace quorvane
