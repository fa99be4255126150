#pragma once

#include <functional>

#include "platform/linux/sway/SwayIpc.h"

namespace quorvane {

/// Reads one of sway's lists, whenever there is a new connection and whenever it may have changed: however
/// often that is told until the answer comes, it is read just once more.
class SwayReading {
public:
    /// `sway` must outlive this object.
    SwayReading(SwayIpc& sway, SwayRequest request, std::function<void(const QJsonDocument&)> taken);

    void readAnew();

private:
    void ask();

    SwayIpc& sway_;
    SwayRequest request_;
    std::function<void(const QJsonDocument&)> taken_;
    bool isAsked_ = false;
    bool isOld_ = false; ///< More has happened since it was asked for.
    Subscription openings_;
};

} // namespace quorvane
