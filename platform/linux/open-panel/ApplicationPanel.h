#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include <QDialog>

#include "platform/linux/desktop-files/DesktopEntries.h"

class QFileDialog;
class QLineEdit;
class QListView;

namespace quorvane {

class ApplicationList;

/// The window in which the user chooses one of the installed applications, or the file of another one.
class ApplicationPanel : public QDialog {
public:
    using Completion = std::function<void(std::optional<std::string> bundleIdentifier)>;

    /// Stays in front of its owner, and ends with it; null for a window of its own.
    ApplicationPanel(DesktopEntries& entries, QWidget* owner);

    /// Who is told of the choice.
    void setCompletion(Completion completion) { completion_ = std::move(completion); }

    void accept() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addRows();
    void search(const QString& text);
    void chooseOther();
    void finishWith(const std::optional<std::string>& bundleIdentifier);

    DesktopEntries& entries_;
    Completion completion_;
    ApplicationList* applications_;
    QLineEdit* searchField_;
    QListView* list_;
    QPushButton* chooseButton_ = nullptr;
    QFileDialog* otherFile_ = nullptr;
};

} // namespace quorvane
