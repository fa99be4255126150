#include "platform/linux/qt/QtOpenPanel.h"

#include <filesystem>

#include <QFileDialog>
#include <QStandardPaths>

namespace quorvane {

void QtOpenPanel::beginChoosingApplication(
    std::function<void(std::optional<std::string> bundleIdentifier)> completion) {
    const auto folders = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    auto* dialog = new QFileDialog(nullptr, QString(), folders.value(folders.size() - 1));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [this, completion = std::move(completion)](const QString& path) {
                         completion(applicationOfFile(path.toStdString()));
                     });
    dialog->show();
}

std::optional<std::string> QtOpenPanel::applicationOfFile(const std::string& path) const {
    const std::filesystem::path file(path);
    const auto entry = file.extension() == ".desktop" ? entries_.withId(file.stem().string())
                                                      : entries_.withProgram(file.filename().string());
    return entry ? std::optional(entry->id) : std::nullopt;
}

} // namespace quorvane
