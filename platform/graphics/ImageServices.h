#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "graphics/UIGraphicsImageContext.h"
#include "graphics/UIImage.h"

namespace frelta {

/// Makes, reads and writes pictures. Needs no display. Safe on hostile input.
class ImageServices {
 public:
  /// Pixels of a canvas.
  static constexpr std::uint64_t kMaximumPixels = std::uint64_t{32} << 20;
  /// Pixels along a side of a picture that was read: more than a screen shows.
  static constexpr int kMaximumSide = 4096;
  /// Bytes of a picture's file.
  static constexpr std::uint64_t kMaximumBytes = std::uint64_t{64} << 20;

  virtual ~ImageServices() = default;

  /// A transparent canvas; size in points, scale in pixels a point. A side that is not a whole
  /// number of pixels is rounded up; one that is not positive, or more than kMaximumPixels, makes a
  /// canvas without content.
  virtual std::unique_ptr<UIGraphicsImageContext> beginImageContext(CGSize size,
                                                                    double scale) const = 0;

  /// The picture in the bytes of a PNG, JPEG or GIF file, at scale 1, the first one of several.
  /// Its colours are brought to sRGB, the camera's orientation is applied, and one with a side
  /// longer than kMaximumSide is shrunk to a half, a quarter and so on. Null when not all of its
  /// pixels are there, when it is too large or would take too long, all of which is told before
  /// much memory is taken, or when there is no memory. It may take 400 MB for a moment.
  virtual std::shared_ptr<const UIImage> imageWithData(std::string_view bytes) const = 0;

  /// A PNG file's bytes. Nothing for an image without content.
  virtual std::optional<std::string> pngRepresentation(const UIImage& image) const = 0;
};

}  // namespace frelta
