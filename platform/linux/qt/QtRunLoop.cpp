#include "platform/linux/qt/QtRunLoop.h"

#include <chrono>
#include <cmath>
#include <thread>
#include <utility>

#include <QPointer>
#include <QTimer>

namespace quorvane {
namespace {

class QtTimer : public Timer {
public:
    explicit QtTimer(QTimer* timer) : timer_(timer) {}

    void disarm() override {
        if (!timer_) return;
        timer_->stop();
        timer_->deleteLater(); // it may be the one that fires now
        timer_.clear();
    }

private:
    QPointer<QTimer> timer_; // a timer that has fired once deletes itself
};

std::chrono::milliseconds milliseconds(double seconds) {
    return std::chrono::milliseconds(std::llround(seconds * 1000));
}

} // namespace

TimerRef QtRunLoop::scheduledTimer(double seconds, bool repeats, Block block) {
    auto* timer = new QTimer(&context_);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setSingleShot(!repeats);
    QObject::connect(timer, &QTimer::timeout, &context_, std::move(block));
    if (!repeats) QObject::connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
    timer->start(milliseconds(seconds));
    return std::make_shared<QtTimer>(timer);
}

void QtRunLoop::dispatchAfter(double seconds, Block block) {
    // A timer of no time at all would wait until the loop has nothing else to do.
    if (seconds <= 0)
        QMetaObject::invokeMethod(&context_, std::move(block), Qt::QueuedConnection);
    else
        QTimer::singleShot(milliseconds(seconds), Qt::PreciseTimer, &context_, std::move(block));
}

void QtRunLoop::sleep(double seconds) {
    std::this_thread::sleep_for(milliseconds(seconds));
}

} // namespace quorvane
