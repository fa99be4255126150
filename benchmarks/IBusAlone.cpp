#include "benchmarks/IBusAlone.h"

#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <thread>
#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QFile>

#include "benchmarks/Percentiles.h"
#include "virtual-desktop/IBusDaemon.h"
#include "virtual-desktop/ProgramSession.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

const QString ibusInterface = QStringLiteral("org.freedesktop.IBus");
const QString ibusPath = QStringLiteral("/org/freedesktop/IBus");
const QString clientName = QStringLiteral("only client");

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

QString addressOfDaemon() {
    QFile file(IBusDaemon::addressFile());
    if (file.open(QFile::ReadOnly)) {
        for (const auto& line : file.readAll().split('\n'))
            if (line.startsWith("IBUS_ADDRESS=")) return line.mid(line.indexOf('=') + 1);
    }
    throw std::runtime_error("IBus has left no address");
}

/// A daemon and its only client. Every call waits for the answer.
class OnlyClient {
public:
    OnlyClient() {
        daemon_.start();
        bus_ = QDBusConnection::connectToBus(addressOfDaemon(), clientName);
    }
    ~OnlyClient() { QDBusConnection::disconnectFromBus(clientName); }
    OnlyClient(const OnlyClient&) = delete;
    OnlyClient& operator=(const OnlyClient&) = delete;

    static QDBusMessage selecting(const QString& engine) {
        return message(ibusInterface, ibusPath, ibusInterface, "SetGlobalEngine", {engine});
    }

    double select(const QString& engine) {
        const auto start = Clock::now();
        bus_.call(selecting(engine));
        return millisecondsSince(start);
    }
    void startSelecting(const QString& engine) { bus_.asyncCall(selecting(engine)); }

    void startProcessesOf(const QStringList& engines) {
        bus_.call(
            message(ibusInterface, ibusPath, "org.freedesktop.DBus.Properties", "Set",
                    {ibusInterface, "PreloadEngines", QVariant::fromValue(QDBusVariant(QVariant(engines)))}));
    }

    /// Gives a context of this client's the focus.
    void focus() {
        const auto made = bus_.call(
            message(ibusInterface, ibusPath, ibusInterface, "CreateInputContext", {QString("alone")}));
        context_ = made.arguments().value(0).value<QDBusObjectPath>().path();
        constexpr unsigned showsPreedit = 1, hasFocus = 8;
        callContext("SetCapabilities", {showsPreedit | hasFocus});
        callContext("FocusIn");
    }

    /// Types the letter n. False when the engine has no use for it, as keyboard layouts have not.
    bool isTakenByEngine() {
        constexpr unsigned n = 'n', keycode = 49, noModifiers = 0;
        return callContext("ProcessKeyEvent", {n, keycode, noModifiers}).arguments().value(0).toBool();
    }

    void dropText() { callContext("Reset"); }

    /// What the process of an engine takes to make one of its objects, without the daemon's own work.
    double makeEngine(const QString& processName, const QString& engine) {
        const auto start = Clock::now();
        const auto made = bus_.call(message(processName, "/org/freedesktop/IBus/Factory",
                                            "org.freedesktop.IBus.Factory", "CreateEngine", {engine}));
        const auto time = millisecondsSince(start);
        const auto path = made.arguments().value(0).value<QDBusObjectPath>().path();
        if (path.isEmpty()) throw std::runtime_error("no engine: " + made.errorMessage().toStdString());
        bus_.call(message(processName, path, "org.freedesktop.IBus.Service", "Destroy", {}));
        return time;
    }

private:
    static QDBusMessage message(const QString& to, const QString& path, const QString& interfaceName,
                                const QString& method, const QVariantList& arguments) {
        auto message = QDBusMessage::createMethodCall(to, path, interfaceName, method);
        message.setArguments(arguments);
        return message;
    }

    QDBusMessage callContext(const QString& method, const QVariantList& arguments = {}) {
        return bus_.call(
            message(ibusInterface, context_, "org.freedesktop.IBus.InputContext", method, arguments));
    }

    IBusDaemon daemon_;
    QDBusConnection bus_{clientName};
    QString context_;
};

/// Everything that the switch before has left to do is done.
void pause() {
    std::this_thread::sleep_for(100ms);
}

void measureSelections(OnlyClient& client, const QString& from, const QString& to, int count) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        client.select(from);
        pause();
        times.push_back(client.select(to));
        pause();
    }
    std::printf("%s to %s: ", qPrintable(from), qPrintable(to));
    printPercentiles(times);
    std::puts("");
}

void measureMaking(OnlyClient& client, const QString& processName, const QString& engine, int count) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        times.push_back(client.makeEngine(processName, engine));
        pause();
    }
    std::printf("of this, %s makes an engine in ", qPrintable(processName));
    printPercentiles(times);
    std::puts("");
}

/// Keys in the focused context, this long after the selection was sent.
void measureKeys(OnlyClient& client, std::chrono::microseconds after, int count) {
    int taken = 0;
    for (int i = 0; i < count; ++i) {
        client.dropText();
        client.select("xkb:us::eng");
        pause();
        const auto start = Clock::now();
        client.startSelecting("libpinyin");
        while (Clock::now() < start + after) {
        }
        taken += client.isTakenByEngine();
        pause();
    }
    std::printf("a key %.1f ms after the selection was sent: %d of %d taken by the new engine\n",
                double(after.count()) / 1000, taken, count);
    std::fflush(stdout);
}

void measureFirstUses(bool areStartedAhead, int count) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        OnlyClient client;
        client.select("xkb:us::eng");
        if (areStartedAhead) client.startProcessesOf({"xkb:us::eng", "libpinyin"});
        std::this_thread::sleep_for(1s);
        times.push_back(client.select("libpinyin"));
    }
    std::printf("the first use of libpinyin, its process %s: ",
                areStartedAhead ? "started ahead" : "not started");
    printPercentiles(times);
    std::puts("");
    std::fflush(stdout);
}

} // namespace

void measureIBusAlone(int count) {
    const X11Home home("openbox");
    {
        OnlyClient client;
        client.startProcessesOf({"xkb:us::eng", "libpinyin", "hangul"});
        client.focus();
        for (const auto* engine : {"hangul", "libpinyin", "xkb:us::eng"}) {
            client.select(engine);
            std::this_thread::sleep_for(1s);
        }
        measureSelections(client, "xkb:us::eng", "libpinyin", count);
        measureSelections(client, "libpinyin", "xkb:us::eng", count);
        measureSelections(client, "libpinyin", "hangul", count);
        measureMaking(client, "org.freedesktop.IBus.Libpinyin", "libpinyin", count);
        for (const auto after : {0us, 1000us, 2000us, 3000us, 5000us, 10000us})
            measureKeys(client, after, count);
    }
    for (const bool areStartedAhead : {false, true})
        measureFirstUses(areStartedAhead, std::min(count, 10));
}

} // namespace quorvane
