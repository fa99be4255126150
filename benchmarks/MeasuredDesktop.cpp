#include "benchmarks/MeasuredDesktop.h"

#include <cstdlib>
#include <poll.h>
#include <thread>

#include <xcb/xcb_icccm.h>
#include <xcb/xtest.h>

#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/XcbXkb.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

constexpr std::uint8_t aKey = 38;
constexpr std::uint8_t hotKeyModifiers[] = {37, 64}; // control and option
constexpr std::uint8_t hotKeys[] = {30, 27};         // U and R

QByteArray propertyList(const QByteArray& entries) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>" + entries +
           "</dict></plist>";
}

QByteArray rule(const QByteArray& application, const QByteArray& layout) {
    return "<key>" + application + "</key><dict><key>id</key><string>xkb:" + layout + "</string></dict>";
}

QByteArray shortcut(const QByteArray& layout, const QByteArray& keyCode) {
    return "<key>xkb:" + layout + "</key><dict><key>keyCode</key><integer>" + keyCode +
           "</integer><key>modifierFlags</key><integer>786432</integer></dict>";
}

QString fileOf(std::string_view domain) {
    return QStringLiteral("config/quorvane/%1.plist")
        .arg(QString::fromUtf8(domain.data(), qsizetype(domain.size())));
}

void run(const QString& program, const QStringList& arguments) {
    if (QProcess::execute(program, arguments) != 0) qFatal("%s failed", qPrintable(program));
}

} // namespace

MeasuredDesktop::MeasuredDesktop(bool withTray) {
    folders_.write(
        fileOf(maker::bundleIdentifier),
        propertyList("<key>NotNeedRemindForAutoStartAtLogin</key><true/><key>shortcutOfInput</key><dict>" +
                     shortcut("us", "32") + shortcut("ru", "15") + "</dict>"));
    folders_.write(fileOf(maker::sharedSuiteName),
                   propertyList("<key>autoInput</key><dict>" + rule("first", "us") + rule("second", "ru") +
                                rule("com.runningwithcrayons.Alfred.rofi", "ru") + "</dict>"));
    run("setxkbmap", {"-rules", "evdev", "-model", "pc105", "-layout", "us,ru"});
    windowManager_ = std::make_unique<WindowManager>("openbox");

    bus_.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
    if (!bus_.waitForReadyRead()) qFatal("no dbus-daemon");
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus_.readLine().trimmed());
    if (withTray) {
        tray_.start("trayer", {"--edge", "bottom", "--align", "right", "--height", "28"});
        if (!tray_.waitForStarted()) qFatal("no trayer");
    }
    agent_.setProcessChannelMode(QProcess::ForwardedChannels);
    connect();
}

MeasuredDesktop::~MeasuredDesktop() {
    xcb_disconnect(xcb_);
    for (auto* process : {&agent_, &tray_, &bus_}) {
        process->terminate();
        process->waitForFinished();
    }
}

void MeasuredDesktop::connect() {
    xcb_ = xcb_connect(nullptr, nullptr);
    root_ = xcb_setup_roots_iterator(xcb_get_setup(xcb_)).data->root;
    constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
    const XcbReply<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(xcb_, xcb_intern_atom(xcb_, 0, name.size(), name.data()), nullptr));
    activeWindow_ = atom->atom;

    xkbEvent_ = xcb_get_extension_data(xcb_, &xcb_xkb_id)->first_event;
    const XcbReply<xcb_xkb_use_extension_reply_t> use(
        xcb_xkb_use_extension_reply(xcb_, xcb_xkb_use_extension(xcb_, 1, 0), nullptr));
    xcb_xkb_select_events_details_t details{};
    details.affectState = details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_aux(xcb_, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0, 0, 0,
                              &details);

    windows_[0] = makeWindow("first", 100, false);
    windows_[1] = makeWindow("second", 500, false);
    launcher_ = makeWindow("Rofi", 300, true);
    for (const auto window : windows_)
        xcb_map_window(xcb_, window);
    xcb_flush(xcb_);
    bool hasFocus = false;
    while (const auto seen = nextSeen(Clock::now() + std::chrono::seconds(hasFocus ? 1 : 10)))
        hasFocus = hasFocus || seen->what == Seen::What::focusIn;
}

xcb_window_t MeasuredDesktop::makeWindow(const char* wmClass, int x, bool isPopUp) {
    const auto window = xcb_generate_id(xcb_);
    const std::uint32_t values[] = {isPopUp, XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_KEY_PRESS};
    xcb_create_window(xcb_, XCB_COPY_FROM_PARENT, window, root_, static_cast<std::int16_t>(x), 100, 300, 200,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    const auto value = std::string(wmClass) + '\0' + wmClass + '\0';
    xcb_icccm_set_wm_class(xcb_, window, static_cast<std::uint32_t>(value.size()), value.data());
    return window;
}

Clock::time_point MeasuredDesktop::startAgent() {
    const auto start = Clock::now();
    agent_.start(QUORVANE_PROGRAM, QStringList());
    return start;
}

void MeasuredDesktop::startAgentAndWait() {
    startAgent();
    const auto deadline = Clock::now() + std::chrono::seconds(10);
    for (int application = 0; Clock::now() < deadline; application = 1 - application) {
        activate(application);
        while (const auto seen = nextSeen(Clock::now() + std::chrono::milliseconds(20))) {
            if (seen->what == Seen::What::layout) return;
        }
    }
    qFatal("the agent does not switch");
}

void MeasuredDesktop::activate(int application) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = windows_[application];
    message.type = activeWindow_;
    message.data.data32[0] = 2; // from a pager: not refused
    xcb_send_event(xcb_, false, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(xcb_);
}

void MeasuredDesktop::typeKey() {
    fake(XCB_KEY_PRESS, aKey);
    fake(XCB_KEY_RELEASE, aKey);
}

void MeasuredDesktop::pressHotKey(int group) {
    for (const auto type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        for (const auto modifier : hotKeyModifiers)
            fake(std::uint8_t(type), modifier);
        fake(std::uint8_t(type), hotKeys[group]);
    }
}

void MeasuredDesktop::fake(std::uint8_t type, std::uint8_t keycode) {
    xcb_test_fake_input(xcb_, type, keycode, 0, XCB_NONE, 0, 0, 0);
    xcb_flush(xcb_);
}

void MeasuredDesktop::showLauncher(bool shown) {
    if (shown)
        xcb_map_window(xcb_, launcher_);
    else
        xcb_unmap_window(xcb_, launcher_);
    xcb_flush(xcb_);
}

std::optional<MeasuredDesktop::Seen> MeasuredDesktop::nextSeen(Clock::time_point deadline) {
    for (;;) {
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(xcb_)}) {
            if (auto seen = interpret(*event)) return seen;
        }
        const auto left = std::chrono::ceil<std::chrono::microseconds>(deadline - Clock::now()).count();
        if (left <= 0) return std::nullopt;
        pollfd descriptor{xcb_get_file_descriptor(xcb_), POLLIN, 0};
        const timespec wait{left / 1000000, left % 1000000 * 1000};
        ppoll(&descriptor, 1, &wait, nullptr);
    }
}

std::optional<MeasuredDesktop::Seen> MeasuredDesktop::interpret(const xcb_generic_event_t& event) {
    const auto now = Clock::now();
    const auto type = event.response_type & 0x7f;
    if (type == XCB_FOCUS_IN) {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        const bool isReal = focus.mode == XCB_NOTIFY_MODE_NORMAL && focus.detail != XCB_NOTIFY_DETAIL_POINTER;
        if (isReal) return Seen{Seen::What::focusIn, applicationOf(focus.event), 0, now};
    } else if (type == XCB_KEY_PRESS) {
        const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
        return Seen{Seen::What::key, applicationOf(key.event), key.state >> 13 & 3, now};
    } else if (type == xkbEvent_) {
        const auto& state = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
        if (state.xkbType == XCB_XKB_STATE_NOTIFY) return Seen{Seen::What::layout, 0, state.group, now};
    }
    return std::nullopt;
}

int MeasuredDesktop::currentGroup() {
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(xcb_, xcb_xkb_get_state(xcb_, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return state->group;
}

std::chrono::microseconds randomPause(std::chrono::milliseconds least, std::chrono::milliseconds most) {
    static std::mt19937 random{std::random_device{}()};
    using Microseconds = std::chrono::microseconds;
    return Microseconds(std::uniform_int_distribution<std::int64_t>(Microseconds(least).count(),
                                                                    Microseconds(most).count())(random));
}

} // namespace quorvane
