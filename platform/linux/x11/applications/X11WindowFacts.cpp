#include "platform/linux/x11/applications/X11WindowFacts.h"

#include <xcb/res.h>

#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

namespace {

/// Requests under way for one window.
class Question {
public:
    Question(XConnection& x, xcb_window_t window)
        : x_(x)
        , gtkId_(x, window, "_GTK_APPLICATION_ID")
        , kdeFile_(x, window, "_KDE_NET_WM_DESKTOP_FILE")
        , wmClass_(x, window, "WM_CLASS")
        , netPid_(x, window, "_NET_WM_PID")
        , types_(x, window, "_NET_WM_WINDOW_TYPE") {
        const auto* resources = xcb_get_extension_data(x.xcb(), &xcb_res_id);
        hasResources_ = resources && resources->present;
        const xcb_res_client_id_spec_t spec{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        if (hasResources_) clientIds_ = xcb_res_query_client_ids(x.xcb(), 1, &spec);
    }

    std::optional<WindowFacts> answer() {
        WindowFacts facts;
        facts.gtkApplicationId = gtkId_.text().value_or("");
        facts.kdeDesktopFile = kdeFile_.text().value_or("");
        const auto names = wmClass_.texts();
        if (!names.empty()) facts.wmInstance = names[0];
        if (names.size() > 1) facts.wmClass = names[1];
        const auto claimed = netPid_.values();
        facts.pid = connectedPid();
        if (facts.pid == 0 && !claimed.empty()) facts.pid = static_cast<int>(claimed.front());
        for (const auto type : types_.values()) {
            facts.isPartOfDesktop = facts.isPartOfDesktop || type == x_.atom("_NET_WM_WINDOW_TYPE_DOCK") ||
                                    type == x_.atom("_NET_WM_WINDOW_TYPE_DESKTOP");
        }
        if (netPid_.isRefused()) return std::nullopt;
        return facts;
    }

private:
    /// Who opened the window's connection, by the kernel's word. Better than what the window claims: inside a
    /// container, or on another computer, programs have other numbers.
    int connectedPid() {
        if (!hasResources_) return 0;
        const XcbReply<xcb_res_query_client_ids_reply_t> reply(
            xcb_res_query_client_ids_reply(x_.xcb(), clientIds_, nullptr));
        if (!reply) return 0;
        for (auto it = xcb_res_query_client_ids_ids_iterator(reply.get()); it.rem;
             xcb_res_client_id_value_next(&it)) {
            const bool isPid = it.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID;
            if (isPid && xcb_res_client_id_value_value_length(it.data) > 0)
                return static_cast<int>(*xcb_res_client_id_value_value(it.data));
        }
        return 0;
    }

    XConnection& x_;
    XProperty gtkId_;
    XProperty kdeFile_;
    XProperty wmClass_;
    XProperty netPid_;
    XProperty types_;
    bool hasResources_ = false;
    xcb_res_query_client_ids_cookie_t clientIds_{};
};

} // namespace

std::vector<std::optional<WindowFacts>> factsOf(XConnection& x, std::span<const xcb_window_t> windows) {
    std::vector<Question> questions;
    questions.reserve(windows.size());
    for (const auto window : windows)
        questions.emplace_back(x, window);
    std::vector<std::optional<WindowFacts>> facts;
    facts.reserve(windows.size());
    for (auto& question : questions)
        facts.push_back(question.answer());
    return facts;
}

} // namespace quorvane
