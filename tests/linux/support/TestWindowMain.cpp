// A minimal X program with one window. Prints the window's number when it is shown; ends when its input does.
//   class=CLASS instance=INSTANCE title=TITLE   what the window says; nothing by default
//   at=X,Y,WIDTH,HEIGHT                         where it is
//   popup=1                                     no business of the window manager's, like a menu
//   orphan=1                                    from a connection whose process is gone: nobody can tell
//   whose type=DOCK                                   what kind of window it is: the last part of the type's
//   name PROPERTY=TEXT                               any other property, as UTF-8

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>

#include <poll.h>
#include <unistd.h>
#include <xcb/xcb_icccm.h>

namespace {

xcb_connection_t* xcb = nullptr;
xcb_window_t window = XCB_WINDOW_NONE;
std::map<std::string, std::string> options;

std::string take(const std::string& name) {
    auto option = options.extract(name);
    return option ? option.mapped() : std::string();
}

xcb_atom_t atom(const std::string& name) {
    const auto cookie = xcb_intern_atom(xcb, 0, std::uint16_t(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(xcb, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void setText(const std::string& property, const std::string& type, const std::string& text) {
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 8,
                        std::uint32_t(text.size()), text.data());
}

void describe() {
    const auto names = take("instance") + '\0' + take("class") + '\0';
    if (names.size() > 2) setText("WM_CLASS", "STRING", names);
    if (const auto title = take("title"); !title.empty()) setText("_NET_WM_NAME", "UTF8_STRING", title);
    if (const auto type = take("type"); !type.empty()) {
        const auto value = atom("_NET_WM_WINDOW_TYPE_" + type);
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
                            32, 1, &value);
    }
    for (const auto& [property, text] : options)
        setText(property, "UTF8_STRING", text);
}

void show() {
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
    int x = 50, y = 50, width = 200, height = 100;
    std::sscanf(take("at").c_str(), "%d,%d,%d,%d", &x, &y, &width, &height);
    const std::uint32_t values[] = {screen->white_pixel, !take("popup").empty(),
                                    XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    window = xcb_generate_id(xcb);
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, screen->root, std::int16_t(x), std::int16_t(y),
                      std::uint16_t(width), std::uint16_t(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
                      values);
    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_position(&hints, 1, x, y);
    xcb_icccm_set_wm_normal_hints(xcb, window, &hints);
    describe();
    xcb_map_window(xcb, window);
    xcb_flush(xcb);
}

void run() {
    for (pollfd files[] = {{STDIN_FILENO, POLLIN, 0}, {xcb_get_file_descriptor(xcb), POLLIN, 0}};
         !xcb_connection_has_error(xcb); poll(files, 2, -1)) {
        char byte = 0;
        if (files[0].revents && read(STDIN_FILENO, &byte, 1) <= 0) return;
        while (auto* event = xcb_poll_for_event(xcb)) {
            const auto type = event->response_type & 0x7f;
            std::free(event);
            if (type == XCB_MAP_NOTIFY) (std::printf("%u\n", window), std::fflush(stdout));
            if (type == XCB_DESTROY_NOTIFY) return;
        }
    }
}

} // namespace

int main(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        const std::string argument(arguments[i]);
        const auto equals = argument.find('=');
        options.emplace(argument.substr(0, equals), argument.substr(equals + 1));
    }
    const bool isOrphan = !take("orphan").empty();
    if (isOrphan && fork() > 0) {
        pollfd input{STDIN_FILENO, 0, 0};
        poll(&input, 1, -1);
        return 0;
    }
    xcb = xcb_connect(nullptr, nullptr);
    if (isOrphan && fork() > 0) _exit(0);
    show();
    run();
    xcb_disconnect(xcb);
    return 0;
}
