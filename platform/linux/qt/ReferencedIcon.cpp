#include "platform/linux/qt/ReferencedIcon.h"

#include <QGuiApplication>
#include <QIcon>

#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

constexpr int iconSize = 18; // points

} // namespace

ImageRef referencedIcon(const std::string& reference) {
    const auto name = QString::fromStdString(reference);
    const auto icon = name.startsWith('/') ? QIcon(name) : QIcon::fromTheme(name);
    return QtImage::make(icon.pixmap(QSize(iconSize, iconSize), qGuiApp->devicePixelRatio()).toImage());
}

} // namespace quorvane
