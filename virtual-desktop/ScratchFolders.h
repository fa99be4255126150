#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace quorvane {

/// A home of its own for this process and all it starts: HOME and the XDG folders in a temporary folder that
/// goes with this object. XDG_DATA_DIRS is an empty folder, too, and there is no session bus.
class ScratchFolders {
public:
    ScratchFolders();
    ~ScratchFolders();

    QString home() const { return folder_.path(); }
    QString dataHome() const { return folder_.filePath("data"); }

    /// Writes a file below the home, with the folders it needs. Returns its path.
    QString write(const QString& relativePath, const QByteArray& contents) const;

private:
    QTemporaryDir folder_;
};

} // namespace quorvane
