#pragma once

#include <gmock/gmock.h>

#include "macos/standins/StandIns.h"

namespace quorvane::standins {

/// A fresh system, which must have been used without a fault when it ends.
class FreshSystem {
public:
    FreshSystem() { restartSystem(); }
    ~FreshSystem() { EXPECT_THAT(restartSystem(), testing::IsEmpty()); }
    FreshSystem(const FreshSystem&) = delete;
    FreshSystem& operator=(const FreshSystem&) = delete;
};

} // namespace quorvane::standins
