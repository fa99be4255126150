// Every call for files fails once, and at every call the process ends or the power goes. The build leads all
// calls of this program through here; and as on network file systems, only a file that is open for writing
// can be locked exclusively.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <vector>

#include "linux/defaults/SettingsFolder.h"

extern "C" int __real_fstat(int file, struct stat* attributes);

namespace quorvane {
namespace {

/// What happens at one of the calls.
struct Fate {
    enum Kind { fails, writesLess, endsTheProcess, cutsThePower } kind;
    int error = 0; ///< An errno.
};

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

/// Counts the calls from now on; the one of that number meets its fate. 0: none does.
void arm(int number, Fate fate) {
    plan = {number, fate};
    dirty.clear();
}

/// Ends the counting. Whether there was a call of that number.
bool disarm() {
    const bool wasMet = plan.isMet();
    plan = {};
    return wasMet;
}

} // namespace
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

namespace quorvane {
namespace {

/// A program whose rules are safe, and whose first write, of another key, is still to come.
struct SettingsCallsTest : testing::TestWithParam<Fate> {
    struct Program {
        Program() {
            standard().setObject("good", "rules");
            standard().setObject("old", "key");
            EXPECT_TRUE(standard().synchronize());
        }
        StandardUserDefaults& standard() { return stores.standardUserDefaults(); }

        SettingsFolder folder;
        LinuxUserDefaults stores{folder.path(), "suite"};
    };

    /// What a switch and then a rule write. Whether all of it succeeded at once.
    static bool write(Program& program) {
        bool isWritten = false;
        program.standard().setObject("between", "key");
        program.standard().whenWritten([&] { isWritten = true; }).end();
        program.standard().setObject("new", "key");
        return program.standard().synchronize() && isWritten;
    }

    static void expectWhole(const Program& program) {
        const auto contents = program.folder.contents();
        EXPECT_EQ(contents["rules"], PropertyList("good"));
        EXPECT_THAT(contents["key"],
                    testing::AnyOf(PropertyList("old"), PropertyList("between"), PropertyList("new")));
    }

    static long count(const std::string& text, const QString& part) {
        return QString::fromStdString(text).count(part);
    }
};

class AFailedCall : public SettingsCallsTest {};

TEST_P(AFailedCall, LosesNothingAndIsToldOnce) {
    bool isMet = true;
    for (int call = 1; isMet; ++call) {
        SCOPED_TRACE(call);
        Program program;
        testing::internal::CaptureStderr();
        arm(call, GetParam());
        const bool isWritten = write(program);
        isMet = disarm();
        if (const auto unsaved = program.stores.health().unsaved()) {
            EXPECT_EQ(unsaved->obstacle, SettingsHealth::Obstacle::cannotBeWritten);
            EXPECT_EQ(unsaved->place, program.folder.path());
        }
        expectWhole(program);
        EXPECT_EQ(program.standard().objectForKey("key"), PropertyList("new"));
        EXPECT_TRUE(waitUntil([&] { return program.folder.contents()["key"] == PropertyList("new"); }));
        EXPECT_TRUE(waitUntil([&] { return !program.stores.health().unsaved(); }));
        expectWhole(program);
        const auto lines = testing::internal::GetCapturedStderr();
        const auto failures = count(lines, "settings are kept in memory only");
        EXPECT_EQ(failures, count(lines, "settings are saved again"));
        const bool isTold = !isWritten && GetParam().error != EINTR; // which passes
        EXPECT_EQ(failures, isTold ? 1 : 0) << lines;
    }
}

INSTANTIATE_TEST_SUITE_P(Errors, AFailedCall,
                         testing::Values(Fate{Fate::fails, ENOSPC}, Fate{Fate::fails, EIO},
                                         Fate{Fate::fails, EACCES}, Fate{Fate::fails, EINTR},
                                         Fate{Fate::writesLess}));

class ASuddenEnd : public SettingsCallsTest {};

TEST_P(ASuddenEnd, LeavesAWholeFileAndNothingInTheWay) {
    constexpr int wasMet = 0, wasNot = 1;
    int status = wasMet;
    for (int call = 1; status == wasMet; ++call) {
        SCOPED_TRACE(call);
        Program program;
        const auto child = ::fork();
        if (child == 0) {
            arm(call, GetParam());
            write(program);
            ::_exit(wasNot);
        }
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        status = WEXITSTATUS(status);
        expectWhole(program);
        EXPECT_EQ(SettingsFolder::tool({"write", "suite", "key", "-string", "newer"}), 0);
        EXPECT_EQ(program.folder.contents()["key"], PropertyList("newer"));
        EXPECT_EQ(program.folder.contents()["rules"], PropertyList("good"));
    }
}

INSTANTIATE_TEST_SUITE_P(Ends, ASuddenEnd,
                         testing::Values(Fate{Fate::endsTheProcess}, Fate{Fate::cutsThePower}));

} // namespace
} // namespace quorvane
