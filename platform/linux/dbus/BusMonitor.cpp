#include "platform/linux/dbus/BusMonitor.h"

#include <utility>

#include "platform/linux/Log.h"
#include "platform/linux/dbus/BusConnection.h"
#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/dbus/SessionBusAddress.h"

namespace quorvane {
namespace {

const BusConnection::Interface monitoring{"/org/freedesktop/DBus", "org.freedesktop.DBus.Monitoring"};

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

} // namespace

/// A connection that serves for nothing else: a monitor may not send. GLib's thread holds this weakly.
class BusMonitor::Ear : public std::enable_shared_from_this<Ear> {
public:
    Ear(std::string matchRule, Heard heard) : rule_(std::move(matchRule)), heard_(std::move(heard)) {}
    ~Ear() {
        if (filter_ != 0) g_dbus_connection_remove_filter(bus_->native(), filter_);
    }
    Ear(const Ear&) = delete;
    Ear& operator=(const Ear&) = delete;

    void open(const std::string& address) {
        bus_ = std::make_unique<BusConnection>(
            address, BusConnection::Events{.opened = [this] { becomeMonitor(); }, .closed = {}});
    }

    bool isHearing() const { return isAllowed_ && bus_->isOpen(); }

private:
    using Weak = std::weak_ptr<Ear>;
    struct Post {
        Weak ear;
        GObjectRef<GDBusMessage> message;
    };

    void becomeMonitor() {
        filter_ = g_dbus_connection_add_filter(bus_->native(), pass, new Weak(weak_from_this()),
                                               [](gpointer data) { delete static_cast<Weak*>(data); });
        const char* rules[] = {rule_.c_str(), nullptr};
        bus_->call("org.freedesktop.DBus", monitoring, "BecomeMonitor", g_variant_new("(^asu)", rules, 0U),
                   "()", [this](GVariant* allowed, const GError* error) {
                       isAllowed_ = allowed != nullptr;
                       if (!allowed) logLine("the session bus allows no monitor: " + text(error->message));
                   });
    }

    /// In GLib's thread. What is heard goes no further on this connection, which would answer it.
    static GDBusMessage* pass(GDBusConnection* /*connection*/, GDBusMessage* message, gboolean isIncoming,
                              gpointer data) {
        if (!isIncoming || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_SIGNAL)
            return message;
        constexpr auto hear = +[](gpointer posted) -> gboolean {
            const auto& [ear, heard] = *static_cast<Post*>(posted);
            if (const auto alive = ear.lock()) alive->hear(heard.get());
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
    std::unique_ptr<BusConnection> bus_;
    unsigned filter_ = 0;
    bool isAllowed_ = false;
};

BusMonitor::BusMonitor(const std::string& matchRule, Heard heard)
    : ear_(std::make_shared<Ear>(matchRule, std::move(heard))) {
    ear_->open(sessionBusAddress());
}

BusMonitor::~BusMonitor() = default;

bool BusMonitor::isHearing() const {
    return ear_->isHearing();
}

} // namespace quorvane
