// SPDX-License-Identifier: MIT
// What is on the screen, measured in pixels.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace dwellkey::e2e {

struct Rectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Rectangle&) const = default;
};

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Colour&) const = default;
};

/// The sum of the differences of the channels, 0 to 765.
[[nodiscard]] int distance(Colour one, Colour other);

/// The colour's brightness, 0 (black) to 255 (white).
[[nodiscard]] int lightness(Colour colour);

class Picture {
public:
    /// `pixels` are 0x00RRGGBB, row by row.
    Picture(int width, int height, std::vector<std::uint32_t> pixels);

    [[nodiscard]] int width() const { return width_; }
    [[nodiscard]] int height() const { return height_; }
    [[nodiscard]] Colour at(int x, int y) const;

    /// The smallest rectangle within `area` that holds every pixel of a colour that `wanted`
    /// accepts; absent when there is none.
    [[nodiscard]] std::optional<Rectangle>
    boundingBox(const Rectangle& area, const std::function<bool(Colour)>& wanted) const;

    /// The smallest rectangle that holds every pixel in which the other picture of the same size
    /// differs; absent when there is none.
    [[nodiscard]] std::optional<Rectangle> differences(const Picture& other) const;

    /// How many pixels from (x, y) rightwards are of about the colour of that one.
    [[nodiscard]] int runLength(int x, int y) const;

    /// Writes a PNG below the build's folder of screenshots and returns its path.
    std::filesystem::path save(const std::string& name) const; // NOLINT(modernize-use-nodiscard)

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
};

} // namespace dwellkey::e2e
