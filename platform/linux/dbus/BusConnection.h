#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

using GDBusConnection = struct _GDBusConnection; // NOLINT(bugprone-reserved-identifier): GLib's
using GError = struct _GError;                   // NOLINT(bugprone-reserved-identifier)
using GVariant = struct _GVariant;               // NOLINT(bugprone-reserved-identifier)

namespace quorvane {

/// A connection of one's own to a bus, which may be another than the session's. Nothing waits for it: not
/// even for the connection to be made. Everything is told from the event loop, in the order in which the bus
/// carried it, and nothing after the end of this object.
class BusConnection {
public:
    /// An object's interface.
    struct Interface {
        std::string path, name;
    };
    struct Events {
        std::function<void()> opened;
        std::function<void()> closed; ///< There is no such bus, or it has ended.
    };
    /// The value is null when the call failed.
    using Received = std::function<void(GVariant* value, const GError* error)>;
    using Heard = std::function<void(std::string_view sender, std::string_view signal, GVariant* arguments)>;

    BusConnection(const std::string& address, Events events);
    ~BusConnection();
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;

    bool isOpen() const;

    // Only while it is open:

    /// Starts nobody, and never runs into a time-out. Floating `arguments` are taken over. An answer of
    /// another type than `form` is an error.
    void call(const std::string& destination, const Interface& callee, const char* method,
              GVariant* arguments, const char* form, Received received);

    /// The signals of an interface, whoever sends them; an empty path stands for all objects.
    void listen(const Interface& told, Heard heard);

    /// Tells who owns the name, now and whenever that changes; empty: nobody does.
    void watchName(const std::string& name, std::function<void(const std::string& owner)> told);

    GDBusConnection* native() const;

private:
    class State;
    std::shared_ptr<State> state_;
};

} // namespace quorvane
