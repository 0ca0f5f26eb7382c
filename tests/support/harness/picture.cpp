// SPDX-License-Identifier: MIT
#include "harness/picture.h"

#include "harness/failure.h"

#include <QImage>
#include <QString>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <utility>

namespace dwellkey::e2e {

namespace {

constexpr int sameColour = 12; // rounding of gradients and smoothing

} // namespace

int distance(Colour one, Colour other) {
    return std::abs(one.red - other.red) + std::abs(one.green - other.green)
           + std::abs(one.blue - other.blue);
}

int lightness(Colour colour) {
    return (299 * colour.red + 587 * colour.green + 114 * colour.blue) / 1000;
}

Picture::Picture(int width, int height, std::vector<std::uint32_t> pixels)
    : width_(width), height_(height), pixels_(std::move(pixels)) {}

Colour Picture::at(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) {
        throw Failure("no pixel at " + std::to_string(x) + ", " + std::to_string(y));
    }
    const auto pixel = pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_)
                               + static_cast<std::size_t>(x)];
    return {static_cast<std::uint8_t>(pixel >> 16U), static_cast<std::uint8_t>(pixel >> 8U),
            static_cast<std::uint8_t>(pixel)};
}

std::optional<Rectangle> Picture::boundingBox(const Rectangle& area,
                                              const std::function<bool(Colour)>& wanted) const {
    int left = width_;
    int top = height_;
    int right = -1;
    int bottom = -1;
    for (int y = area.y; y < area.y + area.height; ++y) {
        for (int x = area.x; x < area.x + area.width; ++x) {
            if (wanted(at(x, y))) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        }
    }
    if (right < 0) {
        return std::nullopt;
    }
    return Rectangle{left, top, right - left + 1, bottom - top + 1};
}

std::optional<Rectangle> Picture::differences(const Picture& other) const {
    if (other.width_ != width_ || other.height_ != height_) {
        throw Failure("pictures of different sizes cannot be compared");
    }
    constexpr Colour same{0, 0, 0};
    Picture changed = *this;
    std::ranges::transform(pixels_, other.pixels_, changed.pixels_.begin(), std::bit_xor{});
    return changed.boundingBox({0, 0, width_, height_},
                               [&](Colour colour) { return colour != same; });
}

int Picture::runLength(int x, int y) const {
    const Colour first = at(x, y);
    int length = 0;
    while (x + length < width_ && distance(at(x + length, y), first) <= sameColour) {
        ++length;
    }
    return length;
}

std::filesystem::path Picture::save(const std::string& name) const {
    const auto folder = std::filesystem::path(DWELLKEY_BINARY_DIR) / "screenshots";
    std::filesystem::create_directories(folder);
    auto file = folder / (name + ".png");
    QImage image(width_, height_, QImage::Format_RGB32);
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            const Colour colour = at(x, y);
            image.setPixel(x, y, qRgb(colour.red, colour.green, colour.blue));
        }
    }
    if (!image.save(QString::fromStdString(file.string()), "PNG")) {
        throw Failure("cannot write the screenshot " + file.string());
    }
    return file;
}

} // namespace dwellkey::e2e
