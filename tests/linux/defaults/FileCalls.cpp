#include "linux/defaults/FileCalls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <vector>

extern "C" int __real_fstat(int file, struct stat* attributes);

namespace quorvane {
namespace {

struct Plan {
    int number = 0;
    Fate fate{};
    int calls = 0;
    bool isMet() const { return number > 0 && calls >= number; }
} plan;

/// A file whose bytes are not on the disk.
struct Dirty {
    ino_t inode;
    int file;
};
std::vector<Dirty> dirty;

ino_t inodeOf(int file) {
    struct stat attributes {};
    __real_fstat(file, &attributes);
    return attributes.st_ino;
}

void forget(int file) {
    std::erase_if(dirty, [inode = inodeOf(file)](const Dirty& one) { return one.inode == inode; });
}

[[noreturn]] void end() {
    if (plan.fate.kind == Fate::cutsThePower)
        for (const auto& one : dirty)
            if (::ftruncate(one.file, 0) != 0) std::perror("ftruncate");
    ::_exit(0);
}

/// Whether the call that is about to be made fails.
bool meetsFate() {
    if (plan.number == 0 || ++plan.calls != plan.number) return false;
    if (plan.fate.kind == Fate::endsTheProcess || plan.fate.kind == Fate::cutsThePower) end();
    errno = plan.fate.error;
    return plan.fate.kind == Fate::fails;
}

bool writesLess() {
    return plan.isMet() && plan.calls == plan.number && plan.fate.kind == Fate::writesLess;
}

} // namespace

void arm(int number, Fate fate) {
    plan = {number, fate};
    dirty.clear();
}

bool disarm() {
    const bool wasMet = plan.isMet();
    plan = {};
    return wasMet;
}

} // namespace quorvane

// clang-format off
using quorvane::meetsFate;
extern "C" {
int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int file, void* bytes, size_t size);
ssize_t __real_write(int file, const void* bytes, size_t size);
int __real_stat(const char* path, struct stat* attributes);
int __real_flock(int file, int operation);
int __real_fdatasync(int file);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);
int __real_linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags);
int __real_unlink(const char* path);

int __wrap_open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return meetsFate() ? -1 : __real_open(path, flags, mode);
}
ssize_t __wrap_read(int file, void* bytes, size_t size) { return meetsFate() ? -1 : __real_read(file, bytes, size); }
ssize_t __wrap_write(int file, const void* bytes, size_t size) {
    if (meetsFate()) return -1;
    if (quorvane::plan.number > 0) quorvane::dirty.push_back({quorvane::inodeOf(file), ::dup(file)});
    return __real_write(file, bytes, quorvane::writesLess() ? std::max<size_t>(size / 2, 1) : size);
}
int __wrap_stat(const char* path, struct stat* attributes) { return meetsFate() ? -1 : __real_stat(path, attributes); }
int __wrap_fstat(int file, struct stat* attributes) { return meetsFate() ? -1 : __real_fstat(file, attributes); }
int __wrap_flock(int file, int operation) {
    if (meetsFate()) return -1;
    const bool isRefused = (operation & LOCK_EX) != 0 && (::fcntl(file, F_GETFL) & O_ACCMODE) == O_RDONLY;
    errno = EBADF;
    return isRefused ? -1 : __real_flock(file, operation);
}
int __wrap_fdatasync(int file) {
    if (meetsFate()) return -1;
    quorvane::forget(file);
    return __real_fdatasync(file);
}
int __wrap_fsync(int file) { return meetsFate() ? -1 : __real_fsync(file); }
int __wrap_rename(const char* from, const char* to) { return meetsFate() ? -1 : __real_rename(from, to); }
int __wrap_linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    return meetsFate() ? -1 : __real_linkat(fromFolder, from, toFolder, to, flags);
}
int __wrap_unlink(const char* path) { return meetsFate() ? -1 : __real_unlink(path); }
}
// clang-format on
