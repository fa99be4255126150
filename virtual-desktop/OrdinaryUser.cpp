#include "virtual-desktop/OrdinaryUser.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sched.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {
namespace {

bool write(const char* file, const std::string& text) {
    const FileDescriptor opened(::open(file, O_WRONLY | O_CLOEXEC));
    return ::write(opened.number(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

std::string map(unsigned inside, unsigned outside) {
    return std::to_string(inside) + " " + std::to_string(outside) + " 1";
}

void leaveRoot() {
    // Whom the system knows by name: a bus lets nobody else in, and Xwayland neither.
    const auto* user = ::getpwnam("daemon");
    if (!user) throw std::runtime_error("there is no user daemon");
    const auto groupOfRoot = ::getegid();
    if (::unshare(CLONE_NEWUSER) == 0) {
        if (!write("/proc/self/setgroups", "deny") || !write("/proc/self/uid_map", map(user->pw_uid, 0)) ||
            !write("/proc/self/gid_map", map(user->pw_gid, groupOfRoot)))
            throw std::runtime_error("a user namespace cannot be set up");
    } else if (::setgroups(0, nullptr) != 0 || ::setgid(user->pw_gid) != 0 || ::setuid(user->pw_uid) != 0) {
        throw std::runtime_error("cannot become another user");
    }
}

} // namespace

// Only a program that is started as somebody has no more rights than they have: others of theirs may look at
// it then.
void becomeOrdinaryUser(char** arguments) {
    if (::geteuid() != 0) return;
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    leaveRoot();
    ::execv(program.c_str(), arguments);
    throw std::runtime_error("cannot be run by somebody else: " + program.string());
}

} // namespace quorvane
