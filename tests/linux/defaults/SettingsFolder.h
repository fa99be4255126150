#pragma once

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

/// A config folder of the test's own, and what editors and other processes do in it.
class SettingsFolder {
public:
    SettingsFolder() { qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8()); }

    std::filesystem::path path() const { return LinuxUserDefaults::configFolder(); }
    QString file(const QString& name = "suite.plist") const {
        return QString::fromStdString((path() / name.toStdString()).string());
    }
    QByteArray bytes(const QString& name = "suite.plist") const {
        QFile opened(file(name));
        return opened.open(QFile::ReadOnly) ? opened.readAll() : QByteArray();
    }
    PropertyList contents() const {
        SettingsHealth health;
        return DefaultsFile(file().toStdString(), health).contents();
    }
    /// Saves in place, as some editors do.
    void save(const QByteArray& bytes) const {
        std::filesystem::create_directories(path());
        QFile opened(file());
        opened.open(QFile::WriteOnly);
        opened.write(bytes);
    }
    static QByteArray dictionary(const QByteArray& entries) {
        return "<plist version=\"1.0\">\n<dict>" + entries + "</dict></plist>\n";
    }
    static int tool(const QStringList& arguments) {
        return QProcess::execute(QUORVANECTL, QStringList("defaults") + arguments);
    }

private:
    QTemporaryDir folder_;
};

} // namespace quorvane
