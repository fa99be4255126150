#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {

/// A desktop and its user, as the suite of one port needs them.
class ContractBench {
public:
    virtual ~ContractBench() = default;

    virtual bool waitUntil(const std::function<bool()>& condition) = 0;
};

/// The suite of a port: its parameter makes the desktop.
template <class Bench>
class Contract : public testing::TestWithParam<std::function<std::unique_ptr<Bench>()>> {
protected:
    bool waitUntil(const std::function<bool()>& condition) { return bench_->waitUntil(condition); }

    std::unique_ptr<Bench> bench_ = this->GetParam()();
};

} // namespace quorvane
