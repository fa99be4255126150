#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Image.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

/// A picture made of given bytes.
class SimulatedImage : public Image {
public:
    SimulatedImage(Size size, std::vector<std::uint8_t> pixelData)
        : size_(size)
        , pixelData_(std::move(pixelData)) {}

    /// A picture of one colour all over.
    static ImageRef ofColor(Size size, std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
        std::vector<std::uint8_t> bytes;
        for (int pixel = 0; pixel < static_cast<int>(size.width) * static_cast<int>(size.height); ++pixel)
            bytes.insert(bytes.end(), {red, green, blue, 255});
        return std::make_shared<SimulatedImage>(size, std::move(bytes));
    }

    Size size() const override { return size_; }
    std::vector<std::uint8_t> pixelData() const override { return pixelData_; }
    ImageRef redrawn(Size size) const override;

private:
    Size size_;
    std::vector<std::uint8_t> pixelData_;
};

class SimulatedImages : public Images {
public:
    explicit SimulatedImages(Journal& journal) : journal_(journal) {}

    ImageRef imageWithContentsOfURL(std::string_view url) const override { return find(byURL, url); }
    ImageRef imageNamed(std::string_view name) const override { return find(byName, name); }

    using Pictures = std::map<std::string, ImageRef, std::less<>>;
    Pictures byURL;
    Pictures byName;

private:
    ImageRef find(const Pictures& pictures, std::string_view key) const {
        journal_.add("load ", key);
        const auto found = pictures.find(key);
        return found == pictures.end() ? nullptr : found->second;
    }

    Journal& journal_;
};

} // namespace quorvane
