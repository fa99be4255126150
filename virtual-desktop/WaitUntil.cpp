#include "virtual-desktop/WaitUntil.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace quorvane {

bool waitUntil(const std::function<bool()>& condition, std::chrono::seconds limit) {
    const QDeadlineTimer deadline(limit);
    QTimer tick;
    tick.start(10);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void pauseLikeAPerson() {
    const QDeadlineTimer quickestHand(300); // milliseconds
    waitUntil([&] { return quickestHand.hasExpired(); });
}

} // namespace quorvane
