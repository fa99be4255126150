#pragma once

#include <utility>

#include <QPixmap>
#include <QString>

#include "platform/Image.h"

namespace quorvane {

/// An icon of the user's icon theme, or in a file, of which only the name is known until its pixels are asked
/// for: looking it up takes milliseconds.
class ApplicationIcon : public Image {
public:
    /// `name` is an icon's name or a file's absolute path.
    explicit ApplicationIcon(QString name) : name_(std::move(name)) {}

    const QString& name() const { return name_; }

    /// Looks the icon up and draws it: `size` points wide and high at most. Null when there is no such icon.
    static QPixmap load(const QString& name, const QSize& size, double pixelsPerPoint);

    Size size() const override;
    std::vector<std::uint8_t> pixelData() const override;
    ImageRef redrawn(Size size) const override; ///< Null when there is no such icon.

private:
    QString name_;
};

} // namespace quorvane
