#include "platform/linux/wayland/ToplevelActivity.h"

#include <algorithm>
#include <span>

#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"

namespace quorvane {
namespace {

ToplevelActivity& activityOf(void* data) {
    return *static_cast<ToplevelActivity*>(data);
}

using Window = zwlr_foreign_toplevel_handle_v1;

constexpr zwlr_foreign_toplevel_handle_v1_listener windowListener{
    .title = [](void*, Window*, const char*) {},
    .app_id = [](void*, Window*, const char*) {},
    .output_enter = [](void*, Window*, wl_output*) {},
    .output_leave = [](void*, Window*, wl_output*) {},
    .state =
        [](void* data, Window* window, wl_array* array) {
            const std::span states(static_cast<const std::uint32_t*>(array->data),
                                   array->size / sizeof(std::uint32_t));
            const bool isActive =
                std::ranges::count(states, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) > 0;
            activityOf(data).becameActive(window, isActive);
        },
    .done = [](void*, Window*) {},
    .closed = [](void* data, Window* window) { activityOf(data).closed(window); },
    .parent = [](void*, Window*, Window*) {}};

constexpr zwlr_foreign_toplevel_manager_v1_listener managerListener{
    .toplevel = [](void* data, zwlr_foreign_toplevel_manager_v1* /*manager*/,
                   Window* window) { activityOf(data).opened(window); },
    .finished = [](void* data,
                   zwlr_foreign_toplevel_manager_v1* /*manager*/) { activityOf(data).finished(); }};

} // namespace

ToplevelActivity::ToplevelActivity(WaylandDisplay& display)
    : offers_(display.offered.connect(
          [this, &display](std::uint32_t number, std::string_view interface, std::uint32_t version) {
              const auto& wanted = zwlr_foreign_toplevel_manager_v1_interface;
              if (manager_ || interface != wanted.name) return;
              constexpr std::uint32_t known = 3;
              manager_ = display.bind<zwlr_foreign_toplevel_manager_v1>(number, wanted, version, known);
              zwlr_foreign_toplevel_manager_v1_add_listener(manager_, &managerListener, this);
          })) {}

ToplevelActivity::~ToplevelActivity() {
    for (auto* window : windows_)
        zwlr_foreign_toplevel_handle_v1_destroy(window);
    finished();
}

void ToplevelActivity::opened(Window* window) {
    windows_.insert(window);
    zwlr_foreign_toplevel_handle_v1_add_listener(window, &windowListener, this);
}

void ToplevelActivity::becameActive(Window* window, bool isActive) {
    if (isActive == (window == active_)) return;
    active_ = isActive ? window : nullptr;
    changed.emit();
}

void ToplevelActivity::closed(Window* window) {
    becameActive(window, false);
    windows_.erase(window);
    zwlr_foreign_toplevel_handle_v1_destroy(window);
}

void ToplevelActivity::finished() {
    if (manager_) zwlr_foreign_toplevel_manager_v1_destroy(manager_);
    manager_ = nullptr;
}

} // namespace quorvane
