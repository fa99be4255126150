#include "platform/linux/sway/SwayReading.h"

#include <utility>

namespace quorvane {

SwayReading::SwayReading(SwayIpc& sway, SwayRequest request, std::function<void(const QJsonDocument&)> taken)
    : sway_(sway)
    , request_(request)
    , taken_(std::move(taken))
    , openings_(sway.opened.connect([this] { ask(); })) {}

void SwayReading::readAnew() {
    if (isAsked_)
        isOld_ = true;
    else
        ask();
}

void SwayReading::ask() {
    isAsked_ = sway_.isOpen();
    isOld_ = false;
    sway_.ask(request_, {}, [this](const QJsonDocument& answer) {
        isAsked_ = false;
        taken_(answer);
        if (isOld_) ask();
    });
}

} // namespace quorvane
