#include "virtual-desktop/WaitUntil.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace quorvane {

bool waitUntil(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(10000);
    QTimer tick;
    tick.start(10);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace quorvane
