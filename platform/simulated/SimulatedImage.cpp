#include "platform/simulated/SimulatedImage.h"

#include <algorithm>

namespace quorvane {

ImageRef SimulatedImage::redrawn(Size size) const {
    constexpr std::size_t bytesPerPixel = 4;
    const auto width = static_cast<std::size_t>(size.width), height = static_cast<std::size_t>(size.height);
    const auto ownWidth = static_cast<std::size_t>(size_.width),
               ownHeight = static_cast<std::size_t>(size_.height);
    std::vector<std::uint8_t> bytes;
    for (std::size_t row = 0; row < height; ++row) {
        for (std::size_t column = 0; column < width; ++column) {
            const auto pixel = (row * ownHeight / height * ownWidth + column * ownWidth / width);
            for (auto byte = pixel * bytesPerPixel; byte < (pixel + 1) * bytesPerPixel; ++byte)
                bytes.push_back(byte < pixelData_.size() ? pixelData_[byte] : std::uint8_t{0});
        }
    }
    return std::make_shared<SimulatedImage>(size, std::move(bytes));
}

} // namespace quorvane
