#pragma once

#include <vector>

#include <QAbstractListModel>

#include "platform/linux/desktop-files/DesktopEntries.h"
#include "platform/linux/preferences/IconLoader.h"

namespace quorvane {

/// The applications that menus show, and the launchers, which menus do not all show, as rows of a view, in
/// the order of their names in the user's language. Icons come when they have been loaded, those of the rows
/// that are drawn.
class ApplicationList : public QAbstractListModel {
public:
    enum Role { idRole = Qt::UserRole };
    static constexpr int iconSize = 32; // points

    ApplicationList(DesktopEntries& entries, QObject* parent);

    /// Leaves only the rows of applications whose name, id or program contains the text.
    void setFilter(const QString& text);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Application {
        DesktopEntryRef entry;
        QString name;
        QString id;
    };

    void add(DesktopEntryRef entry);
    QVariant icon(const DesktopEntry& entry) const;
    void showNewIcons();

    std::vector<Application> applications_;
    std::vector<std::size_t> rows_; ///< Places in `applications_`.
    mutable IconLoader icons_{[this] { showNewIcons(); }};
    mutable std::vector<IconLoader::Icon> missingIcons_; ///< Of the rows that were drawn meanwhile.
};

} // namespace quorvane
