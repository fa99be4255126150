// The contract of the workspace among real applications, which the system brings to the front when they are
// opened. Whoever uses the Mac meanwhile is in the way.

#include <cstdlib>

#include "contracts/WorkspaceContract.h"
#include "macos/native/RunLoopWait.h"
#import "platform/macos/appkit/MacWorkspace.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

class MacWorkspaceBench : public WorkspaceBench {
public:
    ~MacWorkspaceBench() override {
        for (const auto* id : {"alpha", "beta", "gamma"}) {
            quit(id);
            waitUntil([id] { return running(id) == nil; });
        }
    }
    Workspace& workspace() override { return workspace_; }
    void openWindow(const std::string& id) override {
        // They lie beside this program.
        const auto command =
            "/usr/bin/open '" + fromNSString(NSBundle.mainBundle.bundlePath) + '/' + id + ".app'";
        EXPECT_EQ(std::system(command.c_str()), 0) << command; // NOLINT(bugprone-command-processor)
    }
    void activate(const std::string& id) override { openWindow(id); }
    void hide(const std::string& id) override { [running(id) hide]; }
    void quit(const std::string& id) override { [running(id) terminate]; }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }

private:
    static NSRunningApplication* _Nullable running(const std::string& id) {
        NSString* identifier = toNSString(id);
        if (!identifier) return nil;
        return [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier].firstObject;
    }

    MacWorkspace workspace_;
};

INSTANTIATE_TEST_SUITE_P(Mac, WorkspaceContract, testing::Values([]() -> std::unique_ptr<WorkspaceBench> {
                             return std::make_unique<MacWorkspaceBench>();
                         }));

} // namespace
} // namespace quorvane
