#include <gtest/gtest.h>

#include "linux/x11/X11Session.h"

namespace quorvane {
namespace {

class X11WorkspaceTest : public testing::Test {
protected:
    X11Session session_;
};

TEST_F(X11WorkspaceTest, TellsWhichApplicationIsInFront) {
    TestWindow alpha({"class=Alpha", "instance=alpha"});
    EXPECT_TRUE(session_.waitForFront("Alpha"));
    TestWindow beta({"class=Beta", "instance=beta"});
    EXPECT_TRUE(session_.waitForFront("Beta"));
    session_.user.activate(alpha.window());
    EXPECT_TRUE(session_.waitForFront("Alpha"));
}

} // namespace
} // namespace quorvane
