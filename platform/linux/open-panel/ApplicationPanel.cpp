#include "platform/linux/open-panel/ApplicationPanel.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "platform/linux/desktop-files/ApplicationFiles.h"
#include "platform/linux/localization/Localized.h"
#include "platform/linux/open-panel/ApplicationDelegate.h"
#include "platform/linux/open-panel/ApplicationList.h"

namespace quorvane {
namespace {

constexpr QSize smallestSize(320, 300); // points
constexpr QSize firstSize(460, 520);

/// Where a user looks for applications, and for programs without a desktop file.
QList<QUrl> foldersOfApplications() {
    auto folders = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    folders += {QStringLiteral("/usr/bin"), QStringLiteral("/usr/local/bin"), QStringLiteral("/opt"),
                QDir::home().filePath(QStringLiteral(".local/bin")), QDir::homePath()};
    folders.removeDuplicates();
    QList<QUrl> urls;
    for (const auto& folder : folders) {
        if (QFileInfo(folder).isDir()) urls.append(QUrl::fromLocalFile(folder));
    }
    return urls;
}

} // namespace

ApplicationPanel::ApplicationPanel(DesktopEntries& entries, QWidget* owner)
    : QDialog(owner)
    , entries_(entries)
    , applications_(new ApplicationList(entries, this))
    , searchField_(new QLineEdit(this))
    , list_(new QListView(this)) {
    setWindowTitle(localized("Choose an application"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(smallestSize);
    resize(firstSize);

    searchField_->setPlaceholderText(localized("Search"));
    searchField_->setAccessibleName(localized("Search"));
    searchField_->setClearButtonEnabled(true);
    searchField_->installEventFilter(this);
    connect(searchField_, &QLineEdit::textChanged, this, &ApplicationPanel::search);

    list_->setAccessibleName(localized("Applications"));
    list_->setItemDelegate(new ApplicationDelegate(list_));
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QListView::NoEditTriggers);
    list_->setModel(applications_);
    connect(list_, &QListView::doubleClicked, this, &ApplicationPanel::accept);
    addRows();
    search({});
}

void ApplicationPanel::addRows() {
    auto* buttons = new QDialogButtonBox(this);
    chooseButton_ = buttons->addButton(localized("Choose"), QDialogButtonBox::AcceptRole);
    chooseButton_->setDefault(true);
    buttons->addButton(localized("Cancel"), QDialogButtonBox::RejectRole);
    auto* other = buttons->addButton(localized("Other…"), QDialogButtonBox::ResetRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &ApplicationPanel::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ApplicationPanel::reject);
    connect(other, &QPushButton::clicked, this, &ApplicationPanel::chooseOther);

    auto* rows = new QVBoxLayout(this);
    rows->addWidget(searchField_);
    rows->addWidget(list_);
    rows->addWidget(buttons);
    searchField_->setFocus();
}

void ApplicationPanel::search(const QString& text) {
    applications_->setFilter(text);
    list_->setCurrentIndex(applications_->index(0));
    chooseButton_->setEnabled(applications_->rowCount() > 0);
}

void ApplicationPanel::accept() {
    const auto chosen = list_->currentIndex();
    if (!chosen.isValid()) return;
    finishWith(chosen.data(ApplicationList::idRole).toString().toStdString());
}

void ApplicationPanel::chooseOther() {
    if (!otherFile_) {
        const auto folders = foldersOfApplications();
        otherFile_ = new QFileDialog(this, windowTitle());
        otherFile_->setFileMode(QFileDialog::ExistingFile);
        otherFile_->setOption(QFileDialog::DontResolveSymlinks); // the name of a link tells more
        otherFile_->setSidebarUrls(folders);
        const auto systemFolder = QStringLiteral("/usr/share/applications");
        otherFile_->setDirectory(systemFolder);
        connect(otherFile_, &QFileDialog::fileSelected, this, [this](const QString& path) {
            finishWith(bundleIdentifierOfFile(entries_, path.toStdString()));
        });
    }
    if (otherFile_->isVisible())
        otherFile_->activateWindow();
    else
        otherFile_->show();
}

void ApplicationPanel::finishWith(const std::optional<std::string>& bundleIdentifier) {
    const auto completion = std::move(completion_);
    done(Accepted);
    if (completion) completion(bundleIdentifier);
}

bool ApplicationPanel::eventFilter(QObject* watched, QEvent* event) {
    // The list is moved in while the field keeps the focus.
    if (watched == searchField_ && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(list_, event);
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace quorvane
