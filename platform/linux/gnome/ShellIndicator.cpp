#include "platform/linux/gnome/ShellIndicator.h"

#include <algorithm>

#include <QGuiApplication>
#include <QScreen>

#include "platform/linux/qt/IndicatorPicture.h"

namespace quorvane {
namespace {

int nearest(double number) {
    constexpr double farthest = 100000; // More than all screens together.
    return static_cast<int>(std::clamp(number, -farthest, farthest));
}

} // namespace

ShellIndicator::ShellIndicator(GnomeShell& shell)
    : shell_(shell)
    , starts_(shell.started.connect([this] {
        if (!picture_.isNull()) showNow();
    })) {}

double ShellIndicator::scale() const {
    return qGuiApp->devicePixelRatio();
}

void ShellIndicator::show(const QImage& picture) {
    picture_ = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    showNow();
}

void ShellIndicator::hide() {
    if (!picture_.isNull()) shell_.call("HideIndicator");
    picture_ = QImage();
}

void ShellIndicator::moveTo(Point bottomLeft) {
    bottomLeft_ = bottomLeft;
    if (!picture_.isNull()) shell_.call("MoveIndicator", {place().x(), place().y()});
}

void ShellIndicator::showNow() {
    const QByteArray pixels(reinterpret_cast<const char*>(picture_.constBits()), picture_.sizeInBytes());
    shell_.call("ShowIndicator", {pixels, picture_.width(), picture_.height(), place().x(), place().y(),
                                  scale(), mayBeDragged()});
}

/// From the primary screen's bottom left to the top left of all screens.
QPoint ShellIndicator::place() const {
    const auto* primary = QGuiApplication::primaryScreen();
    const auto screen = primary ? primary->geometry() : QRect();
    return {nearest(screen.x() + bottomLeft_.x),
            nearest(screen.y() + screen.height() - bottomLeft_.y - indicatorSize)};
}

} // namespace quorvane
