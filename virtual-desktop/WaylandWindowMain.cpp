// A window that records what its keyboard gets: quorvane-wayland-window TITLE [APPID]. Each line begins with
// the microseconds of CLOCK_MONOTONIC at which the event was heard:
//   shown          the window has been drawn
//   enter, leave   it got or lost the keyboard
//   group N        which layout of its keymap the keys go through from now on, told after `enter` and when it
//   changes text T         what a key that was pressed typed
//   token T        by which another program's window may take the focus; asked for when F1 is pressed

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>

#include "virtual-desktop/WaylandClient.h"
#include "virtual-desktop/XkbKeymap.h"
#include "xdg-activation-v1-client-protocol.h"
#include "xdg-shell-client-protocol.h"

namespace {

using quorvane::WaylandClient;

void record(const char* event, const std::string& detail = {}) {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const long long microseconds = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    std::printf("%lld %s%s\n", microseconds, event, detail.empty() ? "" : (" " + detail).c_str());
    std::fflush(stdout);
}

class Keyboard {
public:
    Keyboard(WaylandClient& client, wl_seat* seat) : client_(client), seat_(seat) {
        static constexpr wl_seat_listener listener{[](void* self, wl_seat* of, std::uint32_t capabilities) {
                                                       static_cast<Keyboard*>(self)->plug(
                                                           of, capabilities & WL_SEAT_CAPABILITY_KEYBOARD);
                                                   },
                                                   [](void*, wl_seat*, const char*) {}};
        wl_seat_add_listener(seat, &listener, this);
    }

private:
    static constexpr unsigned none = ~0U;

    void plug(wl_seat* seat, bool hasKeyboard) {
        if (hasKeyboard == (keyboard_ != nullptr)) return;
        if (!hasKeyboard) {
            wl_keyboard_release(keyboard_);
            keyboard_ = nullptr;
            return;
        }
        keyboard_ = wl_seat_get_keyboard(seat);
        static constexpr wl_keyboard_listener listener{
            [](void* self, wl_keyboard*, std::uint32_t, int file, std::uint32_t size) {
                static_cast<Keyboard*>(self)->takeMap(file, size);
            },
            [](void* self, wl_keyboard*, std::uint32_t, wl_surface* window, wl_array*) {
                static_cast<Keyboard*>(self)->group_ = none;
                static_cast<Keyboard*>(self)->window_ = window;
                record("enter");
            },
            [](void*, wl_keyboard*, std::uint32_t, wl_surface*) { record("leave"); },
            [](void* self, wl_keyboard*, std::uint32_t serial, std::uint32_t, std::uint32_t key,
               std::uint32_t state) {
                if (state != WL_KEYBOARD_KEY_STATE_PRESSED) return;
                if (key == KEY_F1) static_cast<Keyboard*>(self)->askForToken(serial);
                static_cast<Keyboard*>(self)->type(key);
            },
            [](void* self, wl_keyboard*, std::uint32_t, std::uint32_t depressed, std::uint32_t latched,
               std::uint32_t locked, std::uint32_t group) {
                static_cast<Keyboard*>(self)->update(depressed, latched, locked, group);
            },
            [](void*, wl_keyboard*, std::int32_t, std::int32_t) {}};
        wl_keyboard_add_listener(keyboard_, &listener, this);
    }
    void takeMap(int file, std::uint32_t size) {
        if (auto* text = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0); text != MAP_FAILED) {
            map_.reset(xkb_keymap_new_from_string(context_.get(), static_cast<const char*>(text),
                                                  XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
            state_.reset(map_ ? xkb_state_new(map_.get()) : nullptr);
            ::munmap(text, size);
        }
        ::close(file);
    }
    void update(std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked, std::uint32_t group) {
        if (state_) xkb_state_update_mask(state_.get(), depressed, latched, locked, 0, 0, group);
        if (group != group_) record("group", std::to_string(group));
        group_ = group;
    }
    void type(std::uint32_t key) const {
        constexpr std::uint32_t firstKeycode = 8;
        char text[16] = "";
        if (state_) xkb_state_key_get_utf8(state_.get(), key + firstKeycode, text, sizeof text);
        if (static_cast<unsigned char>(text[0]) >= ' ') record("text", text);
    }

    void askForToken(std::uint32_t serial) {
        static constexpr xdg_activation_token_v1_listener listener{
            [](void*, xdg_activation_token_v1*, const char* token) { record("token", token); }};
        auto* token = client_.keep(xdg_activation_v1_get_activation_token(
            client_.bind<xdg_activation_v1>(xdg_activation_v1_interface, 1)));
        xdg_activation_token_v1_add_listener(token, &listener, nullptr);
        xdg_activation_token_v1_set_serial(token, serial, seat_);
        xdg_activation_token_v1_set_surface(token, window_);
        xdg_activation_token_v1_commit(token);
    }

    WaylandClient& client_;
    wl_seat* seat_;
    wl_surface* window_ = nullptr; ///< That had the keys last.
    quorvane::XkbContext context_{xkb_context_new(XKB_CONTEXT_NO_FLAGS)};
    quorvane::XkbKeymap map_;
    quorvane::XkbState state_;
    wl_keyboard* keyboard_ = nullptr;
    unsigned group_ = none;
};

class Window {
public:
    Window(WaylandClient& client, const char* title, const char* applicationId)
        : shm_(client.bind<wl_shm>(wl_shm_interface, 1))
        , surface_(wl_compositor_create_surface(client.bind<wl_compositor>(wl_compositor_interface, 1))) {
        auto* base = client.bind<xdg_wm_base>(xdg_wm_base_interface, 1);
        static constexpr xdg_wm_base_listener onPing{
            [](void*, xdg_wm_base* of, std::uint32_t serial) { xdg_wm_base_pong(of, serial); }};
        xdg_wm_base_add_listener(base, &onPing, nullptr);
        auto* shell = xdg_wm_base_get_xdg_surface(base, surface_);
        static constexpr xdg_surface_listener onConfigure{
            [](void* self, xdg_surface* of, std::uint32_t serial) {
                xdg_surface_ack_configure(of, serial);
                static_cast<Window*>(self)->draw();
            }};
        xdg_surface_add_listener(shell, &onConfigure, this);
        auto* window = xdg_surface_get_toplevel(shell);
        static constexpr xdg_toplevel_listener onChange{
            [](void* self, xdg_toplevel*, std::int32_t width, std::int32_t height, wl_array*) {
                if (width > 0) static_cast<Window*>(self)->width_ = width;
                if (height > 0) static_cast<Window*>(self)->height_ = height;
            },
            [](void*, xdg_toplevel*) { std::exit(0); },
        };
        xdg_toplevel_add_listener(window, &onChange, this);
        xdg_toplevel_set_title(window, title);
        xdg_toplevel_set_app_id(window, applicationId);
        wl_surface_commit(surface_);
    }

private:
    void draw() {
        const auto stride = width_ * 4;
        const auto size = stride * height_;
        const int file = ::memfd_create("picture", MFD_CLOEXEC);
        if (file < 0 || ::ftruncate(file, size) != 0) std::exit(1); // All black.
        auto* pool = wl_shm_create_pool(shm_, file, size);
        auto* picture = wl_shm_pool_create_buffer(pool, 0, width_, height_, stride, WL_SHM_FORMAT_XRGB8888);
        static constexpr wl_buffer_listener onRelease{
            [](void*, wl_buffer* shown) { wl_buffer_destroy(shown); }};
        wl_buffer_add_listener(picture, &onRelease, nullptr);
        wl_shm_pool_destroy(pool);
        ::close(file);
        wl_surface_attach(surface_, picture, 0, 0);
        wl_surface_damage(surface_, 0, 0, width_, height_);
        wl_surface_commit(surface_);
        record("shown");
    }

    wl_shm* shm_;
    wl_surface* surface_;
    std::int32_t width_ = 300;
    std::int32_t height_ = 200;
};

} // namespace

int main(int count, char** arguments) {
    if (count < 2) return 2;
    WaylandClient client;
    const Keyboard keyboard(client, client.bind<wl_seat>(wl_seat_interface, 5));
    const Window window(client, arguments[1], arguments[count - 1]);
    client.run();
    record("gone");
    return 3;
}
