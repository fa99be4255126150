#pragma once

#include <string>
#include <vector>

#include "platform/RawDomain.h"
#import "platform/macos/AppKit.h"
#import "platform/macos/foundation/Receiver.h"

namespace quorvane {

/// One domain of the user's defaults. The system tells of writes by key-value observing, on any thread.
class MacDefaultsDomain : public RawDomain {
public:
    enum class Kind { applicationsOwn, suite };

    MacDefaultsDomain(std::string_view name, Kind kind);
    MacDefaultsDomain(const MacDefaultsDomain&) = delete;
    MacDefaultsDomain& operator=(const MacDefaultsDomain&) = delete;
    ~MacDefaultsDomain() override;

    PropertyList get(std::string_view key) override;
    bool set(const PropertyList& value, std::string_view key) override;
    void observe(std::string_view key) override;
    bool flush() override { return [defaults_ synchronize]; }

private:
    NSUserDefaults* defaults_; // nil for a suite that cannot be opened
    NSString* ownDomain_;      // nil for a suite
    std::vector<std::string> observed_;
    QuorvaneReceiver* receiver_;
};

} // namespace quorvane
