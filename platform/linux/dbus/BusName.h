#pragma once

#include <optional>

#include <QDBusConnection>
#include <QObject>

#include "platform/Signal.h"

namespace quorvane {

/// Who owns a name on a bus: asked once, without waiting for the answer, and told of by the bus from then on.
/// Nobody is started by it. With a bus that is gone, nobody owns it.
///
/// Signals of a program are best connected without its name and compared with the owner: Qt would ask the bus
/// for it and wait.
class BusName : public QObject {
    Q_OBJECT

public:
    BusName(const QDBusConnection& bus, const QString& name);

    /// The unique name of the owner's connection; empty: nobody owns it, or the bus has not told yet.
    const QString& owner() const { return owner_; }
    bool isOwned() const { return !owner_.isEmpty(); }
    bool isTold() const { return isTold_; }

    /// The bus has told who owns it, or that nobody does; or there is another owner than before, who was the
    /// one given here, empty when there was none. None at first.
    Signal<const std::optional<QString>& /*before*/> told;

private:
    Q_SLOT void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    Q_SLOT void disconnected() { setOwner({}); }
    void setOwner(const QString& owner);

    QString owner_;
    bool isTold_ = false;
};

} // namespace quorvane
