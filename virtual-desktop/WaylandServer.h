#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include <QRect>
#include <QStringList>

#include "virtual-desktop/SessionBus.h"

namespace quorvane {

/// A session bus and, on it, a Wayland compositor without a screen for people. It becomes this process's
/// WAYLAND_DISPLAY, and DISPLAY for programs of X; there is a keyboard with the layouts us, ru and de.
/// Windows are named by their title or application ID. Ready when the constructor returns; ends with this
/// object. No key repeats: when much goes on, a release may come late.
class WaylandServer {
public:
    virtual ~WaylandServer();
    WaylandServer(const WaylandServer&) = delete;
    WaylandServer& operator=(const WaylandServer&) = delete;

    // Keys, by the numbers of the hardware: they go through no layout.
    void press(std::uint8_t keycode) { send(keycode, true); }
    void release(std::uint8_t keycode) { send(keycode, false); }
    void pressTogether(const std::vector<std::uint8_t>& keycodes); ///< All held at once, then released.
    void type(std::initializer_list<std::uint8_t> keycodes);       ///< One after the other.

    /// Waits until that window is in front; false when it is not after ten seconds.
    bool activate(const QString& window);
    bool isInFront(const QString& window) { return namesInFront().contains(window); }
    virtual QStringList namesInFront() = 0; ///< Title and application ID, as the compositor tells; or none.

    virtual QRect place(const QString& window) = 0;
    virtual void move(const QString& window,
                      const QRect& place) = 0; ///< It does not lie in rows with others then.

    virtual unsigned layout() = 0; ///< The place of the selected one, as the compositor tells.
    virtual void selectLayout(unsigned layout) = 0;

    /// A picture of the whole screen, as a PNG file. Throws when there is none.
    virtual void saveScreenshot(const QString& path) = 0;

    // What can go wrong.
    void kill(); ///< It ends at once.
    void stop(); ///< It hangs until `resume`.
    void resume();
    void restart(); ///< Ends it if it still runs, and starts it at the same address. Its windows are gone.
    SessionBus& bus() { return bus_; }
    qint64 processId() const { return process_.processId(); }

protected:
    /// The desktop that programs are told to be on.
    explicit WaylandServer(const char* desktop);

    /// Starts the program and waits until `isReady`; throws when it ends or is not within a minute. What it
    /// needs besides what every program has is added to its environment.
    void start(const QString& program, const QStringList& arguments, const QStringList& environment,
               const std::function<bool()>& isReady);
    void end(); ///< To be called before what `isReady` and the keyboard use goes.

    void useDisplays(const QByteArray& wayland, const QByteArray& x, const QByteArray& authorityOfX = {});

    /// A program that tells, when the compositor starts it, its displays; and whether it has told. They are
    /// used then.
    QString writeTeller() const;
    bool hasToldDisplays();

    /// Of the compositor, in everything that it writes to its log.
    QByteArray log() const;

    QString runFolder() const { return qEnvironmentVariable("XDG_RUNTIME_DIR"); }

private:
    virtual void launch() = 0; ///< `start`s it, and plugs the keyboard in.
    virtual void ask(const QString& windowToActivate) = 0;
    virtual void send(std::uint8_t keycode, bool isPressed) = 0;

    SessionBus bus_{nullptr, SessionBus::Services::none};
    ChildProcess process_;
};

} // namespace quorvane
