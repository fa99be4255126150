#pragma once

#include <memory>
#include <utility>

#include <QDBusConnection>
#include <QDBusMessage>

#include "virtual-desktop/ChildProcess.h"

namespace quorvane {

/// An Fcitx5 daemon of one's own on the current display and session bus, and somebody who uses it. Needs
/// scratch folders: its settings are written there. Ends with this object.
class Fcitx5Daemon {
public:
    struct Settings {
        QStringList inputMethods{"keyboard-us", "keyboard-ru", "pinyin", "hangul"};
        QString shareInputState = "No";
        bool keepsLayouts = true; ///< Not so by default: it overwrites the X server's layouts.
    };

    /// Pairs of texts as D-Bus knows them: input methods with their layouts, for instance.
    using Items = QList<std::pair<QString, QString>>;

    /// Not started yet.
    explicit Fcitx5Daemon(const Settings& settings);
    ~Fcitx5Daemon();
    Fcitx5Daemon(const Fcitx5Daemon&) = delete;
    Fcitx5Daemon& operator=(const Fcitx5Daemon&) = delete;

    void start(); ///< Ready when this returns; takes the place of one that runs.
    void end();
    void kill();
    void stop();   ///< It hangs until `resume`.
    void resume(); ///< Goes on after `stop`.

    void select(const QString& inputMethod); ///< For the context that had the focus last.
    QString inputMethod();                   ///< Of that one.
    void setInputMethods(const QStringList& inputMethods);

    /// A call to any of its objects, waiting for the answer.
    QDBusMessage call(const QString& path, const QString& interfaceName, const QString& method,
                      const QVariantList& arguments = {});

    /// The user's connection.
    QDBusConnection& bus() { return bus_; }

private:
    QDBusMessage control(const QString& method, const QVariantList& arguments = {});

    QDBusConnection bus_;
    std::unique_ptr<ChildProcess> process_;
};

} // namespace quorvane
