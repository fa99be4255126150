#include "platform/linux/qt/ProgramIcon.h"

#include "settings/Maker.h"

namespace quorvane {

QIcon programIcon(const QIcon& builtIn) {
    const auto name = QString::fromUtf8(maker::bundleIdentifier.data(), maker::bundleIdentifier.size());
    return QIcon::fromTheme(name, builtIn);
}

} // namespace quorvane
