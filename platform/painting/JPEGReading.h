#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace frelta {

/// A JPEG file's pixels, rows from the top, 4 bytes each and no room between them.
struct JPEGPixels {
  int width;
  int height;
  /// Cyan, magenta, yellow and black, each 255 for no ink; otherwise red, green, blue and 255.
  bool areInks;
  std::unique_ptr<std::uint8_t[]> bytes;
};

/// Decodes what has passed the gate. While it is larger than that side, the picture is shrunk to a
/// half, a quarter or an eighth. Memory: the pixels of the result, and those coefficients that the
/// gate allows for. Nothing when a pixel is missing or damaged.
std::optional<JPEGPixels> readJPEG(std::string_view gated, int maximumSide);

}  // namespace frelta
