// A minimal X program with one window. Prints the window's number when it is shown; ends when its input does.
//   class=CLASS instance=INSTANCE title=TITLE   what the window says; nothing by default
//   at=X,Y,WIDTH,HEIGHT                         where it is
//   popup=1                                     no business of the window manager's, like a menu
//   orphan=1                                    from a connection whose process is gone: nobody can tell
//   whose it is type=DOCK                                   what kind of window it is: the last part of the
//   type's name PROPERTY=TEXT                               any other property, as UTF-8

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xcb_icccm.h>

namespace {

class Program {
public:
    Program(int count, char** arguments) : xcb_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(xcb_)) std::exit(1);
        for (int i = 1; i < count; ++i) {
            const std::string_view argument(arguments[i]);
            const auto equals = argument.find('=');
            options_.emplace(argument.substr(0, equals), argument.substr(equals + 1));
        }
    }

    ~Program() { xcb_disconnect(xcb_); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void show() {
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(xcb_)).data;
        int x = 50, y = 50, width = 200, height = 100;
        std::sscanf(take("at").c_str(), "%d,%d,%d,%d", &x, &y, &width, &height);
        const std::uint32_t values[] = {screen->white_pixel, !take("popup").empty(),
                                        XCB_EVENT_MASK_STRUCTURE_NOTIFY};
        window_ = xcb_generate_id(xcb_);
        xcb_create_window(xcb_, XCB_COPY_FROM_PARENT, window_, screen->root, std::int16_t(x), std::int16_t(y),
                          std::uint16_t(width), std::uint16_t(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        xcb_size_hints_t hints{};
        xcb_icccm_size_hints_set_position(&hints, 1, x, y);
        xcb_icccm_set_wm_normal_hints(xcb_, window_, &hints);
        describe();
        xcb_map_window(xcb_, window_);
        xcb_flush(xcb_);
    }

    void run() {
        for (pollfd files[] = {{STDIN_FILENO, POLLIN, 0}, {xcb_get_file_descriptor(xcb_), POLLIN, 0}};
             !xcb_connection_has_error(xcb_); poll(files, 2, -1)) {
            char byte = 0;
            if (files[0].revents && read(STDIN_FILENO, &byte, 1) <= 0) return;
            while (auto* event = xcb_poll_for_event(xcb_)) {
                const auto type = event->response_type & 0x7f;
                std::free(event);
                if (type == XCB_MAP_NOTIFY) (std::printf("%u\n", window_), std::fflush(stdout));
                if (type == XCB_DESTROY_NOTIFY) return;
            }
        }
    }

private:
    std::string take(const std::string& name) {
        auto option = options_.extract(name);
        return option ? option.mapped() : std::string();
    }

    void describe() {
        const auto instance = take("instance");
        const auto wmClass = take("class");
        if (!instance.empty() || !wmClass.empty())
            setText("WM_CLASS", "STRING", instance + '\0' + wmClass + '\0');
        if (const auto title = take("title"); !title.empty()) setText("_NET_WM_NAME", "UTF8_STRING", title);
        if (const auto type = take("type"); !type.empty()) {
            const auto value = atom("_NET_WM_WINDOW_TYPE_" + type);
            xcb_change_property(xcb_, XCB_PROP_MODE_REPLACE, window_, atom("_NET_WM_WINDOW_TYPE"),
                                XCB_ATOM_ATOM, 32, 1, &value);
        }
        for (const auto& [property, text] : options_)
            setText(property, "UTF8_STRING", text);
    }

    void setText(const std::string& property, const std::string& type, const std::string& text) {
        xcb_change_property(xcb_, XCB_PROP_MODE_REPLACE, window_, atom(property), atom(type), 8,
                            std::uint32_t(text.size()), text.data());
    }

    xcb_atom_t atom(const std::string& name) {
        const auto cookie = xcb_intern_atom(xcb_, 0, std::uint16_t(name.size()), name.data());
        auto* reply = xcb_intern_atom_reply(xcb_, cookie, nullptr);
        const auto atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        std::free(reply);
        return atom;
    }

    xcb_connection_t* xcb_;
    std::map<std::string, std::string> options_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
};

} // namespace

int main(int count, char** arguments) {
    const bool isOrphan = count > 1 && std::string_view(arguments[1]) == "orphan=1";
    if (isOrphan && fork() > 0) {
        pollfd input{STDIN_FILENO, 0, 0};
        poll(&input, 1, -1);
        return 0;
    }
    Program program(count, arguments);
    if (isOrphan && fork() > 0) _exit(0);
    program.show();
    program.run();
    return 0;
}
