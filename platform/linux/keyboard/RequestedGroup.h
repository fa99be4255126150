#pragma once

namespace quorvane {

/// The group of a keyboard whose compositor switches it some time after it is asked to: what it tells until
/// it has answered the last request is older than that. It tells before it answers.
class RequestedGroup {
public:
    unsigned effective() const { return isUnderWay() ? requested_ : told_; }
    bool isUnderWay() const { return requests_ > 0; }

    void request(unsigned group) {
        requested_ = group;
        ++requests_;
    }

    /// Whether it was done or refused.
    void answered() {
        if (requests_ > 0) --requests_;
    }

    void tell(unsigned group) { told_ = group; }

    /// There will be no answers.
    void forgetRequests() { requests_ = 0; }

private:
    unsigned told_ = 0;
    unsigned requested_ = 0;
    int requests_ = 0; ///< That were not answered yet.
};

} // namespace quorvane
