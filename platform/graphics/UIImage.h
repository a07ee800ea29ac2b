#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "graphics/CGGeometry.h"

namespace frelta {

/// A picture that never changes. Its pixels are rows from the top, each pixel red, green, blue and
/// alpha of 8 bits, the colours premultiplied. Shared; no image is a null pointer.
class UIImage {
 public:
  /// An image without content: no pixels, no size.
  UIImage() = default;
  /// The pixels, width × height × 4 bytes, are shared, not copied. The scale is pixels in a point.
  UIImage(int width, int height, double scale, std::shared_ptr<const std::uint8_t> pixels);

  /// The picture in the file, at scale 1. Null when it cannot be read: missing, no regular file,
  /// too large, or no picture.
  static std::shared_ptr<const UIImage> imageWithContentsOfFile(std::string_view path);

  /// The same picture together with its PNG file, which takes seconds to make of a photo and may be
  /// made on any thread.
  std::shared_ptr<const UIImage> imageWithPNGRepresentation() const;

  /// Size in points.
  CGSize size() const { return {width_ / scale_, height_ / scale_}; }
  double scale() const { return scale_; }
  int pixelWidth() const { return width_; }
  int pixelHeight() const { return height_; }
  std::span<const std::uint8_t> pixels() const {
    return {pixels_.get(),
            std::size_t{4} * static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)};
  }

 private:
  int width_ = 0;
  int height_ = 0;
  double scale_ = 1;
  std::shared_ptr<const std::uint8_t> pixels_;
  std::shared_ptr<const std::string> png_;

  friend std::optional<std::string> UIImagePNGRepresentation(const UIImage& image);
};

/// The picture as a PNG file's bytes, those that it brings along if it does. Nothing for an image
/// without content.
std::optional<std::string> UIImagePNGRepresentation(const UIImage& image);

}  // namespace frelta
