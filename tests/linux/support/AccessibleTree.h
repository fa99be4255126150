#pragma once

#include <functional>
#include <optional>

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QRect>
#include <QString>

#include "virtual-desktop/ChildProcess.h"

namespace quorvane {

/// Something on the screen as a screen reader knows it.
struct Accessible {
    QString service;
    QString path;
};

/// What programs tell screen readers, and so where their widgets are: tests find them by the names that
/// people hear. Needs a session bus. Programs started later tell.
///
/// It stands in for the services that a program asks before it tells anybody anything: where the bus for that
/// is, and who keeps the list of programs.
class AccessibleTree : private QDBusVirtualObject {
public:
    AccessibleTree();
    ~AccessibleTree() override;

    /// Waits for it to be on the screen; an empty rectangle when it is not there after ten seconds. In pixels
    /// from the screen's corner.
    QRect placeOf(const QString& role, const QString& name);

    /// The same for the cell of the table of that name.
    QRect placeOfCell(const QString& table, int row, int column);

    QString nameOfCell(const QString& table, int row, int column);
    bool isChecked(const QString& role, const QString& name);

private:
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    QRect placeOf(const std::function<std::optional<Accessible>()>& found);
    std::optional<Accessible> find(const QString& role, const QString& name);
    std::optional<Accessible> cell(const QString& table, int row, int column);
    bool hasState(const Accessible& of, int bit);
    QString nameOf(const Accessible& of);
    QVariant ask(const Accessible& whom, const QString& interface, const QString& method,
                 const QVariantList& arguments = {});

    ChildProcess busProcess_;
    QString address_;
    QDBusConnection bus_;
};

} // namespace quorvane
