#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <QTimer>

#include "platform/Signal.h"
#include "platform/linux/input-methods/ibus/AnswerWatch.h"

using GVariant = struct _GVariant; // NOLINT(bugprone-reserved-identifier): GLib's

namespace quorvane {

/// The private bus of an IBus daemon. Nothing waits for it: neither for the connection to be made, which a
/// daemon that hangs accepts and then says nothing, nor for an answer.
class IBusConnection {
public:
    /// `value` is null when the call failed, for the reason `error`.
    using Answer = std::function<void(GVariant* value, std::string_view error)>;

    IBusConnection();
    ~IBusConnection();
    IBusConnection(const IBusConnection&) = delete;
    IBusConnection& operator=(const IBusConnection&) = delete;

    /// Connects to a bus in place of the present one; that one's answers are not told any more.
    void open(const std::string& address);
    void close();

    /// What was last opened and is not closed; empty when there is none.
    const std::string& address() const { return address_; }

    /// A property of the daemon.
    void ask(const char* property, Answer answer);
    void setGlobalEngine(const std::string& engine, Answer answer);

    /// Has the daemon make an input context, of which `contextSignal` tells. The answer has its path.
    void createContext(Answer answer);

    /// A call to an input context. A floating `arguments` is taken over.
    void callContext(const std::string& path, const char* method, GVariant* arguments, Answer answer = {});

    Signal<> opened;
    Signal<> closed; ///< By the daemon, or there was none at the address.
    Signal<std::string_view> globalEngineChanged;
    Signal<std::string_view, GVariant*> contextSignal; ///< Its name and its arguments.
    Signal<> silenceBegan;                             ///< The daemon leaves calls unanswered.
    Signal<> silenceEnded;

private:
    class Bus;
    struct Call;

    void call(const char* path, const char* interfaceName, const char* method, GVariant* arguments,
              Answer answer);
    void lost();
    void told(std::string_view engine);
    void waitForNextDue();
    void timePassed();

    std::string address_;
    std::shared_ptr<Bus> bus_;
    AnswerWatch watch_;
    QTimer timer_;
};

} // namespace quorvane
