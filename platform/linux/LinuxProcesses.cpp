#include "platform/linux/LinuxProcesses.h"

#include <cstdlib>
#include <unistd.h>

#include <QProcess>

namespace quorvane {

void LinuxProcesses::system(const std::string& command) {
    // The command is the program's own, and running it by the shell is what is asked for.
    [[maybe_unused]] const auto status = std::system(command.c_str()); // NOLINT(bugprone-command-processor)
}

void LinuxProcesses::launch(const std::string& path, const std::vector<std::string>& arguments) {
    QStringList list;
    for (const auto& argument : arguments)
        list << QString::fromStdString(argument);
    QProcess::startDetached(QString::fromStdString(path), list);
}

void LinuxProcesses::exit(int status) {
    beforeExit_();
    _exit(status);
}

} // namespace quorvane
