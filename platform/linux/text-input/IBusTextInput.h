#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QKeyEvent>
#include <QObject>
#include <QPointer>

#include "platform/linux/dbus/DaemonConnection.h"
#include "platform/linux/input-methods/ibus/IBusAddress.h"

namespace quorvane {

/// Has what is typed into this program's own text fields go through IBus, whose plugin for Qt would wait for
/// a daemon that hangs. Here nothing does: keys are kept until the daemon has answered for them, and go their
/// own way while it is silent or gone. It is looked for when a text field first has the focus.
class IBusTextInput : public QObject {
public:
    /// The application must exist.
    IBusTextInput();

    /// Whether the daemon gets the keys.
    bool isInUse() const { return field_ && !context_.path.empty(); }

private:
    struct Key {
        QPointer<QObject> field;
        std::unique_ptr<QKeyEvent> event;
        unsigned number = 0;
        std::optional<bool> isTaken; ///< By the daemon, when it has answered.
        bool hasText = false;        ///< A text has come before the answer: this key's, probably.
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusMoved(QObject* object);
    void connectToDaemon();
    void createContext();
    void daemonGone();
    void tellFocus();
    void tellCursor();
    void ask(QObject& field, const QKeyEvent& event);
    void answered(unsigned number, bool isTaken);
    void letKeysGo();
    void handle(std::string_view signal, GVariant* arguments);
    void showPreedit(const QString& text, int cursor);

    void callContext(const char* method, GVariant* arguments = nullptr);

    DaemonConnection::Interface context_; ///< Without a path while there is none, or the daemon is silent.
    QPointer<QObject> field_;             ///< Has the focus, and takes text.
    bool hasPreedit_ = false;
    std::deque<Key> keys_;
    unsigned lastNumber_ = 0;
    bool isLettingGo_ = false;
    DaemonConnection connection_;
    std::optional<IBusAddress> address_;
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
