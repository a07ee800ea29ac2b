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
  /// Pixels of a picture that is read, or of a canvas.
  static constexpr std::uint64_t kMaximumPixels = std::uint64_t{32} << 20;
  /// Bytes of a picture's file.
  static constexpr std::uint64_t kMaximumBytes = std::uint64_t{64} << 20;

  virtual ~ImageServices() = default;

  /// A transparent canvas; size in points, scale in pixels a point. A side that is not a whole
  /// number of pixels is rounded up; one that is not positive, or more than kMaximumPixels, makes a
  /// canvas without content.
  virtual std::unique_ptr<UIGraphicsImageContext> beginImageContext(CGSize size,
                                                                    double scale) const = 0;

  /// The picture in the bytes of a PNG, JPEG or GIF file, at scale 1, the first one of several.
  /// Null when there is none that can be decoded, or it has more than kMaximumPixels: that is told
  /// before memory is taken for them.
  virtual std::shared_ptr<const UIImage> imageWithData(std::string_view bytes) const = 0;

  /// A PNG file's bytes. Nothing for an image without content.
  virtual std::optional<std::string> pngRepresentation(const UIImage& image) const = 0;
};

}  // namespace frelta
