#include "platform/linux/open-panel/ApplicationList.h"

#include <algorithm>
#include <utility>

#include <QCollator>
#include <QGuiApplication>

#include "platform/linux/desktop-files/ChoosableApplications.h"

namespace quorvane {
ApplicationList::ApplicationList(DesktopEntries& entries, QObject* parent) : QAbstractListModel(parent) {
    for (auto& entry : choosableApplications(entries))
        add(std::move(entry));
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::ranges::stable_sort(applications_, [&](const Application& a, const Application& b) {
        return collator.compare(a.name, b.name) < 0;
    });
    setFilter({});
}

void ApplicationList::add(DesktopEntryRef entry) {
    const auto name = QString::fromStdString(entry->name);
    const auto id = QString::fromStdString(entry->id);
    applications_.push_back({std::move(entry), name, id});
}

void ApplicationList::setFilter(const QString& text) {
    const auto wanted = text.trimmed();
    const auto fits = [&](const QString& field) { return field.contains(wanted, Qt::CaseInsensitive); };
    beginResetModel();
    rows_.clear();
    missingIcons_.clear();
    for (std::size_t i = 0; i < applications_.size(); ++i) {
        const auto& each = applications_[i];
        if (fits(each.name) || fits(each.id) || fits(QString::fromStdString(each.entry->program)))
            rows_.push_back(i);
    }
    endResetModel();
}

int ApplicationList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ApplicationList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& application = applications_[rows_[static_cast<std::size_t>(index.row())]];
    switch (role) {
    case Qt::DisplayRole:
        return application.name;
    case Qt::ToolTipRole:
        return QString::fromStdString(application.entry->path);
    case Qt::AccessibleDescriptionRole:
    case idRole:
        return application.id;
    case Qt::DecorationRole:
        return icon(*application.entry);
    default:
        return {};
    }
}

QVariant ApplicationList::icon(const DesktopEntry& entry) const {
    if (entry.icon.empty()) return {};
    const IconLoader::Icon icon{QString::fromStdString(entry.icon), iconSize, iconSize,
                                qGuiApp->devicePixelRatio()};
    const auto pixmap = icons_.pixmapOf(icon);
    if (!pixmap.isNull()) return pixmap;
    missingIcons_.push_back(icon);
    icons_.load(missingIcons_);
    return {};
}

void ApplicationList::showNewIcons() {
    missingIcons_.clear(); // Those that are still missing are drawn, and so asked for, again.
    if (!rows_.empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
}

} // namespace quorvane
