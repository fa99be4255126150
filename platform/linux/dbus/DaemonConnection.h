#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QTimer>

#include "platform/Signal.h"
#include "platform/linux/dbus/BusConnection.h"

namespace quorvane {

/// A bus, and the daemon that has a certain name on it. Nothing waits for either: a daemon that hangs accepts
/// connections, and then says nothing. One that leaves a call unanswered for a second is silent, until it
/// answers any.
class DaemonConnection {
public:
    using Interface = BusConnection::Interface;
    /// Null when the call failed, or was answered in another form.
    using Answer = std::function<void(GVariant* value)>;
    using Heard = std::function<void(std::string_view signal, GVariant* arguments)>;

    explicit DaemonConnection(std::string daemonName);
    DaemonConnection(const DaemonConnection&) = delete;
    DaemonConnection& operator=(const DaemonConnection&) = delete;

    /// Connects to a bus in place of the present one, whose answers are told no more.
    void open(const std::string& address);
    void close();

    /// What was last opened and is not closed; empty when there is none.
    const std::string& address() const { return address_; }

    /// Whether the daemon is there and not silent.
    bool isAlive() const { return !owner_.empty() && !isSilent_; }

    /// Whether the daemon is another process than when it was last alive, which knows nothing of what was
    /// said to that.
    bool isStartedAnew() const { return isStartedAnew_; }

    /// Calls a method of the daemon's; without effect while it is not alive. Floating `arguments` are taken
    /// over. `form` is the type of a right answer: "(s)". An answer is no longer told once the daemon has
    /// been silent or gone.
    void call(const Interface& callee, const char* method, GVariant* arguments = nullptr,
              const char* form = "()", Answer answered = {});

    /// Reads a property; the answer is its value.
    void read(const Interface& callee, const char* property, Answer answered);

    /// Sets a property. A floating `value` is taken over.
    void write(const Interface& callee, const char* property, GVariant* value);

    /// Which process a connection to the bus is of; 0 when it is gone. The bus answers, and is
    /// asked once; answers come in the order of the questions. None comes while there is no bus.
    void askProcess(const std::string& connection, std::function<void(int process)> answered);

    /// Hears the signals of an interface on the buses that are opened from now on; an empty path stands for
    /// all objects. Those of others than the daemon are heard if `isOfAnybody`.
    void listen(Interface told, Heard heard, bool isOfAnybody = false);

    Signal<> cameAlive; ///< It is there, or answers again.
    Signal<> wentAway;  ///< It is silent, gone, or has been replaced.

private:
    struct Listener {
        Interface told;
        Heard heard;
        bool isOfAnybody;
    };

    void opened();
    void setOwner(const std::string& owner);
    void answerCame();
    void endSilence(const GError* error);
    void beSilent();

    std::string daemonName_;
    std::string address_;
    std::vector<Listener> listeners_;
    std::string owner_; ///< The daemon's connection; empty while there is none.
    bool isStartedAnew_ = true;
    bool hasAnswered_ = false; ///< This process.
    bool isSilent_ = false;
    unsigned silences_ = 0;                ///< What was asked before the last one is not told.
    int unanswered_ = 0;                   ///< Of those that were asked since.
    std::map<std::string, int> processes_; ///< By connection.
    int askedProcesses_ = 0;               ///< And not answered yet.
    QTimer patience_;
    std::unique_ptr<BusConnection> bus_;
};

} // namespace quorvane
