#include "virtual-desktop/ScratchFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

ScratchFolders::ScratchFolders() {
    const auto set = [this](const char* variable, const char* name) {
        QDir().mkpath(folder_.filePath(name));
        remember(variable);
        qputenv(variable, folder_.filePath(name).toUtf8());
    };
    set("HOME", ".");
    set("XDG_CONFIG_HOME", "config");
    set("XDG_CACHE_HOME", "cache");
    set("XDG_DATA_HOME", "data");
    set("XDG_DATA_DIRS", "system-data");
    set("XDG_RUNTIME_DIR", "run");
    QFile::setPermissions(folder_.filePath("run"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    remember("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void ScratchFolders::remember(const char* variable) {
    const bool isSet = qEnvironmentVariableIsSet(variable);
    before_.emplace_back(variable, isSet ? std::optional(qgetenv(variable)) : std::nullopt);
}

// A program that was told to end may still write a file.
ScratchFolders::~ScratchFolders() {
    waitUntil([this] { return folder_.remove(); });
    for (const auto& [variable, value] : before_)
        value ? qputenv(variable, *value) : qunsetenv(variable);
}

QString ScratchFolders::write(const QString& relativePath, const QByteArray& contents) const {
    auto path = folder_.filePath(relativePath);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    file.open(QFile::WriteOnly);
    file.write(contents);
    return path;
}

} // namespace quorvane
