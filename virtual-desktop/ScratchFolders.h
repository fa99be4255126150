#pragma once

#include <optional>
#include <utility>
#include <vector>

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace quorvane {

/// A home of its own for this process and all it starts: HOME and the XDG folders in a temporary folder that
/// goes with this object, which also puts the environment back. XDG_DATA_DIRS is an empty folder, too, and
/// there is no session bus.
class ScratchFolders {
public:
    ScratchFolders();
    ~ScratchFolders();
    ScratchFolders(const ScratchFolders&) = delete;
    ScratchFolders& operator=(const ScratchFolders&) = delete;

    QString home() const { return folder_.path(); }
    QString dataHome() const { return folder_.filePath("data"); }

    /// Writes a file below the home, with the folders it needs. Returns its path.
    QString write(const QString& relativePath, const QByteArray& contents) const;

private:
    void remember(const char* variable);

    QTemporaryDir folder_;
    std::vector<std::pair<const char*, std::optional<QByteArray>>> before_; ///< The environment, by variable.
};

} // namespace quorvane
