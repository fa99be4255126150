// Every call for files fails once, and at every call the process ends or the power goes.

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "linux/defaults/FileCalls.h"
#include "linux/defaults/SettingsFolder.h"

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
