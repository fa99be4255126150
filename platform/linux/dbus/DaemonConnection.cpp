#include "platform/linux/dbus/DaemonConnection.h"

#include <chrono>
#include <utility>

#include "platform/linux/dbus/GLibRefs.h"

namespace quorvane {
namespace {

constexpr std::chrono::seconds longestUnanswered{1};

constexpr std::size_t mostProcesses = 500; // A bus gives each connection another name.

const BusConnection::Interface busItself{"/org/freedesktop/DBus", "org.freedesktop.DBus"};

BusConnection::Interface propertiesOf(const BusConnection::Interface& callee) {
    return {callee.path, "org.freedesktop.DBus.Properties"};
}

bool isOfBus(const GError& error) {
    return !g_dbus_error_is_remote_error(&error) ||
           g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_NO_REPLY) ||
           g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER) ||
           g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN);
}

} // namespace

DaemonConnection::DaemonConnection(std::string daemonName) : daemonName_(std::move(daemonName)) {
    patience_.setSingleShot(true);
    patience_.setInterval(longestUnanswered);
    QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { beSilent(); });
}

void DaemonConnection::open(const std::string& address) {
    close();
    address_ = address;
    processes_.clear();
    askedProcesses_ = 0;
    bus_ = std::make_unique<BusConnection>(
        address, BusConnection::Events{.opened = [this] { opened(); }, .closed = [this] { close(); }});
}

void DaemonConnection::close() {
    address_.clear();
    bus_.reset();
    setOwner({});
}

void DaemonConnection::opened() {
    for (const auto& [told, heard, isOfAnybody] : listeners_)
        bus_->listen(told, [this, heard = heard, isOfAnybody = isOfAnybody](auto sender, auto signal,
                                                                            auto* arguments) {
            if (isOfAnybody || sender == owner_) heard(signal, arguments);
        });
    bus_->watchName(daemonName_, [this](const std::string& owner) { setOwner(owner); });
}

void DaemonConnection::setOwner(const std::string& owner) {
    if (owner == owner_) return;
    const bool wasAlive = isAlive();
    owner_ = owner;
    isSilent_ = false;
    isStartedAnew_ = true;
    hasAnswered_ = false;
    ++silences_;
    unanswered_ = 0;
    patience_.stop();
    if (wasAlive) wentAway.emit();
    if (isAlive()) cameAlive.emit();
}

void DaemonConnection::listen(Interface told, Heard heard, bool isOfAnybody) {
    listeners_.push_back({std::move(told), std::move(heard), isOfAnybody});
}

// Calls ---------------------------------------------------------------------------------------------------

void DaemonConnection::call(const Interface& callee, const char* method, GVariant* arguments,
                            const char* form, Answer answered) {
    const GVariantRef owned(arguments ? g_variant_ref_sink(arguments) : nullptr);
    if (!isAlive()) return;
    if (unanswered_++ == 0) patience_.start();
    bus_->call(owner_, callee, method, owned.get(), form,
               [this, silences = silences_, answered = std::move(answered)](auto* value, const auto* error) {
                   if (silences != silences_) return endSilence(error);
                   answerCame();
                   if (answered) answered(value);
               });
}

void DaemonConnection::read(const Interface& callee, const char* property, Answer answered) {
    call(propertiesOf(callee), "Get", g_variant_new("(ss)", callee.name.c_str(), property), "(v)",
         [answered = std::move(answered)](GVariant* value) {
             if (!value) return answered(nullptr);
             const GVariantRef boxed(g_variant_get_child_value(value, 0));
             const GVariantRef held(g_variant_get_variant(boxed.get()));
             answered(held.get());
         });
}

void DaemonConnection::write(const Interface& callee, const char* property, GVariant* value) {
    call(propertiesOf(callee), "Set", g_variant_new("(ssv)", callee.name.c_str(), property, value));
}

void DaemonConnection::askProcess(const std::string& connection, std::function<void(int process)> answered) {
    if (!bus_ || !bus_->isOpen()) return;
    const auto known = processes_.find(connection);
    if (known != processes_.end() && askedProcesses_ == 0) return answered(known->second);
    ++askedProcesses_;
    bus_->call(busItself.name, busItself, "GetConnectionUnixProcessID",
               g_variant_new("(s)", connection.c_str()), "(u)",
               [this, connection, answered = std::move(answered)](auto* value, const auto* /*error*/) {
                   --askedProcesses_;
                   guint32 process = 0;
                   if (value) g_variant_get(value, "(u)", &process);
                   if (processes_.size() >= mostProcesses) processes_.clear();
                   processes_[connection] = static_cast<int>(process);
                   answered(static_cast<int>(process));
               });
}

// Silence -------------------------------------------------------------------------------------------------

void DaemonConnection::answerCame() {
    hasAnswered_ = true;
    if (--unanswered_ > 0)
        patience_.start();
    else
        patience_.stop();
}

void DaemonConnection::beSilent() {
    isSilent_ = true;
    // One that is only starting, and slow, is still to be told everything.
    if (hasAnswered_) isStartedAnew_ = false;
    ++silences_;
    wentAway.emit();
}

/// A late answer. That of the bus, for a daemon that is gone, is none.
void DaemonConnection::endSilence(const GError* error) {
    if (error && isOfBus(*error)) return;
    if (std::exchange(isSilent_, false)) cameAlive.emit();
}

} // namespace quorvane
