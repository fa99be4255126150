#include "platform/linux/dbus/BusMonitor.h"

#include <utility>

#include "platform/linux/Log.h"
#include "platform/linux/dbus/GLibRefs.h"

namespace quorvane {
namespace {

std::string text(const char* orNull) {
    return orNull ? orNull : "";
}

std::vector<std::string> textsIn(GVariant* arguments) {
    std::vector<std::string> texts;
    const auto count = arguments ? g_variant_n_children(arguments) : 0;
    for (std::size_t place = 0; place < count; ++place) {
        const GVariantRef argument(g_variant_get_child_value(arguments, place));
        if (g_variant_is_of_type(argument.get(), G_VARIANT_TYPE_STRING))
            texts.emplace_back(g_variant_get_string(argument.get(), nullptr));
    }
    return texts;
}

struct CharsDeleter {
    void operator()(char* chars) const { g_free(chars); }
};

} // namespace

/// The connection, which serves for nothing else: a monitor may not send. GLib's calls back hold it weakly;
/// one of them runs in GLib's thread for the bus.
class BusMonitor::Bus {
public:
    Bus(std::string matchRule, Heard heard) : rule_(std::move(matchRule)), heard_(std::move(heard)) {}
    ~Bus() {
        g_cancellable_cancel(cancellable_.get());
        if (!connection_) return;
        g_dbus_connection_remove_filter(connection_.get(), filter_);
        g_dbus_connection_close(connection_.get(), nullptr, nullptr, nullptr);
    }
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    using Weak = std::weak_ptr<Bus>;

    static void connect(const std::shared_ptr<Bus>& self) {
        const std::unique_ptr<char, CharsDeleter> address(
            g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
        if (!address) return;
        constexpr auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                    G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        g_dbus_connection_new_for_address(
            address.get(), flags, nullptr, self->cancellable_.get(),
            [](GObject*, GAsyncResult* result, gpointer data) {
                const std::unique_ptr<Weak> weak(static_cast<Weak*>(data));
                GObjectRef<GDBusConnection> made(g_dbus_connection_new_for_address_finish(result, nullptr));
                const auto bus = weak->lock();
                if (made && bus) bus->use(std::move(made), bus);
            },
            new Weak(self));
    }

    bool isHearing() const { return isAllowed_ && !g_dbus_connection_is_closed(connection_.get()); }

private:
    struct Post {
        Weak bus;
        GObjectRef<GDBusMessage> message;
    };

    void use(GObjectRef<GDBusConnection> made, const Weak& self) {
        connection_ = std::move(made);
        filter_ = g_dbus_connection_add_filter(connection_.get(), pass, new Weak(self),
                                               [](gpointer data) { delete static_cast<Weak*>(data); });
        const char* rules[] = {rule_.c_str(), nullptr};
        g_dbus_connection_call(
            connection_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus.Monitoring", "BecomeMonitor", g_variant_new("(^asu)", rules, 0U), nullptr,
            G_DBUS_CALL_FLAGS_NONE, -1, cancellable_.get(),
            [](GObject* source, GAsyncResult* result, gpointer data) {
                const std::unique_ptr<Weak> weak(static_cast<Weak*>(data));
                GError* error = nullptr;
                const GVariantRef answer(
                    g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, &error));
                const GErrorRef ownedError(error);
                const auto bus = weak->lock();
                if (!bus) return;
                bus->isAllowed_ = answer != nullptr;
                if (!answer) logLine("the session bus allows no monitor: " + text(error->message));
            },
            new Weak(self));
    }

    /// In GLib's thread. What is heard goes no further on this connection, which would answer it.
    static GDBusMessage* pass(GDBusConnection* /*connection*/, GDBusMessage* message, gboolean isIncoming,
                              gpointer data) {
        if (!isIncoming || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_SIGNAL)
            return message;
        constexpr auto hear = +[](gpointer posted) -> gboolean {
            const auto& [bus, heard] = *static_cast<Post*>(posted);
            if (const auto alive = bus.lock()) alive->hear(heard.get());
            return G_SOURCE_REMOVE;
        };
        g_idle_add_full(G_PRIORITY_DEFAULT, hear,
                        new Post{*static_cast<Weak*>(data), GObjectRef<GDBusMessage>(message)},
                        [](gpointer posted) { delete static_cast<Post*>(posted); });
        return nullptr;
    }

    void hear(GDBusMessage* message) {
        if (!isAllowed_) return; // what the bus tells this connection itself
        heard_({text(g_dbus_message_get_sender(message)), text(g_dbus_message_get_destination(message)),
                text(g_dbus_message_get_path(message)), textsIn(g_dbus_message_get_body(message))});
    }

    std::string rule_;
    Heard heard_;
    GObjectRef<GCancellable> cancellable_{g_cancellable_new()};
    GObjectRef<GDBusConnection> connection_; ///< Null until it is made.
    unsigned filter_ = 0;
    bool isAllowed_ = false;
};

BusMonitor::BusMonitor(const std::string& matchRule, Heard heard)
    : bus_(std::make_shared<Bus>(matchRule, std::move(heard))) {
    Bus::connect(bus_);
}

BusMonitor::~BusMonitor() = default;

bool BusMonitor::isHearing() const {
    return bus_->isHearing();
}

} // namespace quorvane
