#include "platform/linux/ReturnOfSession.h"

#include <chrono>
#include <thread>
#include <utility>

#include <QCoreApplication>
#include <QString>
#include <QThread>
#include <unistd.h>

#include "platform/linux/LaunchArguments.h"
#include "platform/linux/session/SessionKind.h"

namespace quorvane {
namespace {

constexpr std::chrono::seconds longestWait(20);
constexpr std::chrono::milliseconds pause(200);

QtMessageHandler toolkitsHandler = nullptr;

std::function<void()>& lossHandler() {
    static std::function<void()> handler;
    return handler;
}

void runHandler() {
    if (const auto handler = std::exchange(lossHandler(), nullptr)) handler();
}

/// The toolkit notices in two threads, and each would end the process when this returns.
void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    toolkitsHandler(type, context, message);
    if (!message.startsWith(QLatin1String("The Wayland connection "))) return;
    if (!qApp || QThread::currentThread() == qApp->thread()) return runHandler();
    QMetaObject::invokeMethod(qApp, runHandler, Qt::QueuedConnection);
    std::this_thread::sleep_for(longestWait);
}

} // namespace

void startAnewAfterCompositor() {
    execl("/proc/self/exe", "quorvane", launch_argument::afterCompositor, nullptr);
}

Subscription beforeToolkitGivesUp(std::function<void()> handler) {
    lossHandler() = std::move(handler);
    if (!toolkitsHandler) toolkitsHandler = qInstallMessageHandler(handleMessage);
    return Subscription([] { lossHandler() = nullptr; });
}

bool waitForReturnOfSession() {
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (std::chrono::steady_clock::now() < deadline) {
        if (!isOfX11(sessionThere())) return true;
        std::this_thread::sleep_for(pause);
    }
    return false;
}

} // namespace quorvane
