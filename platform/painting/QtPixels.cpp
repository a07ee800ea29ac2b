#include "painting/QtPixels.h"

#include <utility>

namespace frelta {

QImage pixelsOf(const UIImage& image) {
  return {image.pixels().data(), image.pixelWidth(), image.pixelHeight(),
          qsizetype{4} * image.pixelWidth(), kPixelFormat};
}

std::shared_ptr<const UIImage> imageWithPixels(QImage pixels, double scale) {
  pixels.convertTo(kPixelFormat);
  if (pixels.isNull()) return std::make_shared<const UIImage>();
  const auto owner = std::make_shared<const QImage>(std::move(pixels));
  return std::make_shared<const UIImage>(
      owner->width(), owner->height(), scale,
      std::shared_ptr<const std::uint8_t>(owner, owner->constBits()));
}

}  // namespace frelta
