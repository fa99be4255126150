#include "platform/linux/wayland/ShortcutsInhibitor.h"

#include <string_view>

#include <QGuiApplication>
#include <qpa/qplatformnativeinterface.h>

#include "keyboard-shortcuts-inhibit-unstable-v1-client-protocol.h"
#include "platform/linux/Log.h"
#include "platform/linux/wayland/WaylandDisplay.h"

namespace quorvane {
namespace {

/// Of the toolkit; null on another platform.
template <class Object>
Object* resourceOfToolkit(const char* name, QWindow* window = nullptr) {
    auto* toolkit = QGuiApplication::platformNativeInterface();
    if (!toolkit) return nullptr;
    return static_cast<Object*>(window ? toolkit->nativeResourceForWindow(name, window)
                                       : toolkit->nativeResourceForIntegration(name));
}

} // namespace

struct ShortcutsInhibitor::Native {
    WaylandRef<wl_registry> registry;
    zwp_keyboard_shortcuts_inhibit_manager_v1* manager = nullptr;

    ~Native() {
        if (manager) zwp_keyboard_shortcuts_inhibit_manager_v1_destroy(manager);
    }

    static void offered(void* data, wl_registry* registry, std::uint32_t number, const char* protocol,
                        std::uint32_t /*version*/) {
        const auto& known = zwp_keyboard_shortcuts_inhibit_manager_v1_interface;
        if (std::string_view(protocol) != known.name) return;
        static_cast<Native*>(data)->manager = static_cast<zwp_keyboard_shortcuts_inhibit_manager_v1*>(
            wl_registry_bind(registry, number, &known, 1));
    }
    static constexpr wl_registry_listener listener{
        .global = offered,
        .global_remove = [](void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*number*/) {}};
};

ShortcutsInhibitor::ShortcutsInhibitor() : native_(std::make_unique<Native>()) {
    auto* display = resourceOfToolkit<wl_display>("wl_display");
    if (!display) return;
    native_->registry.reset(wl_display_get_registry(display));
    wl_registry_add_listener(native_->registry.get(), &Native::listener, native_.get());
    wl_display_flush(display);
}

ShortcutsInhibitor::~ShortcutsInhibitor() = default;

Subscription ShortcutsInhibitor::inhibit(QWindow& window) {
    auto* seat = resourceOfToolkit<wl_seat>("wl_seat");
    auto* surface = resourceOfToolkit<wl_surface>("surface", &window);
    if (!native_->manager || !seat || !surface) {
        logLine("the compositor keeps its shortcuts while a hot key is recorded");
        return {};
    }
    auto* inhibitor =
        zwp_keyboard_shortcuts_inhibit_manager_v1_inhibit_shortcuts(native_->manager, surface, seat);
    return Subscription([inhibitor] { zwp_keyboard_shortcuts_inhibitor_v1_destroy(inhibitor); });
}

} // namespace quorvane
