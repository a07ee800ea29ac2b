#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "graphics/UIImage.h"

namespace frelta {

/// Red, green, blue and alpha of one pixel, premultiplied.
using Pixel = std::array<int, 4>;

inline constexpr Pixel kTransparent{0, 0, 0, 0};
inline constexpr Pixel kWhite{255, 255, 255, 255};
inline constexpr Pixel kBlack{0, 0, 0, 255};
inline constexpr Pixel kRed{255, 0, 0, 255};
inline constexpr Pixel kBlue{0, 0, 255, 255};

inline std::shared_ptr<const UIImage> picture(int width, int height, double scale,
                                              const std::function<Pixel(int x, int y)>& pixelAt) {
  auto bytes = std::make_shared<std::vector<std::uint8_t>>();
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      for (int component : pixelAt(x, y)) bytes->push_back(static_cast<std::uint8_t>(component));
  return std::make_shared<const UIImage>(width, height, scale,
                                         std::shared_ptr<const std::uint8_t>(bytes, bytes->data()));
}

inline std::shared_ptr<const UIImage> picture(int width, int height, Pixel everywhere) {
  return picture(width, height, 1, [everywhere](int, int) { return everywhere; });
}

inline Pixel pixelOf(const UIImage& image, int x, int y) {
  const auto* from = image.pixels().data() + 4 * (y * image.pixelWidth() + x);
  return {from[0], from[1], from[2], from[3]};
}

inline int alphaOf(const UIImage& image, int x, int y) {
  return pixelOf(image, x, y)[3];
}

}  // namespace frelta
