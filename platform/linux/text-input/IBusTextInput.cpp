#include "platform/linux/text-input/IBusTextInput.h"

#include <algorithm>
#include <utility>

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QScopedValueRollback>
#include <QTextCharFormat>
#include <QWindow>

#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/input-methods/ibus/IBusNames.h"

namespace quorvane {
namespace {

constexpr guint32 withPreedit = 1U << 0U, withFocus = 1U << 3U; // capabilities
constexpr guint32 isRelease = 1U << 30U;
constexpr unsigned toKernelsNumber = 8;
constexpr const char* interfaceOfContext = "org.freedesktop.IBus.InputContext";

bool takesText(QObject* object) {
    if (!object) return false;
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QCoreApplication::sendEvent(object, &query);
    return query.value(Qt::ImEnabled).toBool();
}

/// A text as it travels on the bus: `('IBusText', {}, 'text', ...)` in a variant.
QString textIn(GVariant* arguments) {
    if (g_variant_n_children(arguments) < 1) return {};
    const GVariantRef boxed(g_variant_get_child_value(arguments, 0));
    if (!g_variant_is_of_type(boxed.get(), G_VARIANT_TYPE_VARIANT)) return {};
    const GVariantRef described(g_variant_get_variant(boxed.get()));
    if (!g_variant_is_of_type(described.get(), G_VARIANT_TYPE_TUPLE) ||
        g_variant_n_children(described.get()) < 3)
        return {};
    const GVariantRef text(g_variant_get_child_value(described.get(), 2));
    return g_variant_is_of_type(text.get(), G_VARIANT_TYPE_STRING)
               ? QString::fromUtf8(g_variant_get_string(text.get(), nullptr))
               : QString();
}

} // namespace

IBusTextInput::IBusTextInput() : context_{{}, interfaceOfContext}, connection_(ibusName) {
    qApp->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::focusObjectChanged, this, &IBusTextInput::focusMoved);
    connect(QGuiApplication::inputMethod(), &QInputMethod::cursorRectangleChanged, this,
            &IBusTextInput::tellCursor);
    // What the context of a daemon that was silent makes of keys that have gone their own way meanwhile is
    // not wanted: there is a new one.
    subscriptions_.push_back(connection_.cameAlive.connect([this] { createContext(); }));
    subscriptions_.push_back(connection_.wentAway.connect([this] { daemonGone(); }));
    connection_.listen({{}, interfaceOfContext},
                       [this](std::string_view signal, GVariant* arguments) { handle(signal, arguments); });
}

void IBusTextInput::focusMoved(QObject* object) {
    if (hasPreedit_) showPreedit({}, 0);
    field_ = takesText(object) ? object : nullptr;
    if (field_ && !address_) {
        address_.emplace([this] { connectToDaemon(); });
        connectToDaemon();
    }
    tellFocus();
}

void IBusTextInput::connectToDaemon() {
    const auto address = address_->current();
    if (!address.empty() && address != connection_.address()) connection_.open(address);
}

void IBusTextInput::createContext() {
    connection_.call(ibusDaemon, "CreateInputContext", g_variant_new("(s)", "quorvane"), "(o)",
                     [this](GVariant* answer) {
                         if (!answer) return;
                         const char* path = nullptr;
                         g_variant_get(answer, "(&o)", &path);
                         context_.path = path;
                         callContext("SetCapabilities", g_variant_new("(u)", withPreedit | withFocus));
                         tellFocus();
                     });
}

void IBusTextInput::callContext(const char* method, GVariant* arguments) {
    connection_.call(context_, method, arguments);
}

void IBusTextInput::daemonGone() {
    context_.path.clear();
    letKeysGo();
    if (hasPreedit_) showPreedit({}, 0);
}

void IBusTextInput::tellFocus() {
    if (context_.path.empty()) return;
    callContext(field_ ? "FocusIn" : "FocusOut");
    tellCursor();
}

/// Where candidates are to be shown.
void IBusTextInput::tellCursor() {
    const auto* window = QGuiApplication::focusWindow();
    if (context_.path.empty() || !field_ || !window) return;
    const auto place = QGuiApplication::inputMethod()->cursorRectangle().toRect();
    const auto scale = window->devicePixelRatio();
    const auto corner = window->mapToGlobal(place.topLeft()) * scale;
    const auto size = place.size() * scale;
    callContext("SetCursorLocation",
                g_variant_new("(iiii)", corner.x(), corner.y(), size.width(), size.height()));
}

bool IBusTextInput::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (!isKey || isLettingGo_ || !field_ || watched != field_ || context_.path.empty()) return false;
    ask(*watched, static_cast<QKeyEvent&>(*event));
    return true;
}

void IBusTextInput::ask(QObject& field, const QKeyEvent& event) {
    const auto number = ++lastNumber_;
    keys_.push_back({&field, std::unique_ptr<QKeyEvent>(event.clone()), number, {}});
    const guint32 state = event.nativeModifiers() | (event.type() == QEvent::KeyRelease ? isRelease : 0);
    connection_.call(
        context_, "ProcessKeyEvent",
        g_variant_new("(uuu)", event.nativeVirtualKey(), event.nativeScanCode() - toKernelsNumber, state),
        "(b)", [this, number](GVariant* value) {
            gboolean isTaken = FALSE;
            if (value) g_variant_get(value, "(b)", &isTaken);
            answered(number, isTaken);
        });
}

/// Keys go on in the order in which they came.
void IBusTextInput::answered(unsigned number, bool isTaken) {
    const auto key = std::ranges::find(keys_, number, &Key::number);
    if (key == keys_.end()) return; // It has gone its own way.
    key->isTaken = isTaken;
    const QScopedValueRollback lettingGo(isLettingGo_, true);
    while (!keys_.empty() && keys_.front().isTaken) {
        const auto next = std::move(keys_.front());
        keys_.pop_front();
        if (!*next.isTaken && next.field) QCoreApplication::sendEvent(next.field, next.event.get());
    }
}

void IBusTextInput::letKeysGo() {
    const QScopedValueRollback lettingGo(isLettingGo_, true);
    for (const auto& key : std::exchange(keys_, {}))
        if (!key.isTaken.value_or(key.hasText) && key.field)
            QCoreApplication::sendEvent(key.field, key.event.get());
}

void IBusTextInput::handle(std::string_view signal, GVariant* arguments) {
    if (!field_) return;
    if (signal == "CommitText") {
        const auto key = std::ranges::find_if(keys_, [](const Key& each) { return !each.isTaken; });
        if (key != keys_.end()) key->hasText = true;
        QInputMethodEvent event;
        event.setCommitString(textIn(arguments));
        hasPreedit_ = false;
        QCoreApplication::sendEvent(field_, &event);
    } else if (signal == "UpdatePreeditText" && g_variant_is_of_type(arguments, G_VARIANT_TYPE("(vub)"))) {
        guint32 cursor = 0;
        gboolean isVisible = FALSE;
        g_variant_get(arguments, "(vub)", nullptr, &cursor, &isVisible);
        const auto text = isVisible ? textIn(arguments) : QString();
        const auto before = text.toUcs4().first(std::min<qsizetype>(cursor, text.toUcs4().size()));
        // Characters outside of the basic plane count twice in a field.
        showPreedit(
            text,
            static_cast<int>(
                QString::fromUcs4(reinterpret_cast<const char32_t*>(before.data()), before.size()).size()));
    } else if (signal == "HidePreeditText") {
        showPreedit({}, 0);
    }
}

void IBusTextInput::showPreedit(const QString& text, int cursor) {
    hasPreedit_ = !text.isEmpty();
    if (!field_) return;
    QTextCharFormat underlined;
    underlined.setFontUnderline(true);
    QList<QInputMethodEvent::Attribute> attributes;
    if (hasPreedit_)
        attributes = {{QInputMethodEvent::TextFormat, 0, static_cast<int>(text.size()), underlined},
                      {QInputMethodEvent::Cursor, cursor, 1}};
    QInputMethodEvent event(text, attributes);
    QCoreApplication::sendEvent(field_, &event);
}

} // namespace quorvane
