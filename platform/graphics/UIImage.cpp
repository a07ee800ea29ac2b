#include "graphics/UIImage.h"

#include <utility>

#include "foundation/Platform.h"
#include "graphics/GraphicsServices.h"

namespace frelta {

UIImage::UIImage(int width, int height, double scale, std::shared_ptr<const std::uint8_t> pixels)
    : width_(width), height_(height), scale_(scale), pixels_(std::move(pixels)) {}

std::shared_ptr<const UIImage> UIImage::imageWithContentsOfFile(std::string_view path) {
  const FileManager& files = *Platform::current().fileManager;
  // Opening a device or a pipe, even without waiting, can make something happen at its other end.
  if (!files.fileSizeAtPath(path)) return nullptr;
  const auto bytes = files.contentsAtPath(path, ImageServices::kMaximumBytes);
  return bytes ? GraphicsServices::current().images->imageWithData(*bytes) : nullptr;
}

std::shared_ptr<const UIImage> UIImage::imageWithPNGRepresentation() const {
  auto image = std::make_shared<UIImage>(*this);
  if (auto png = UIImagePNGRepresentation(*this)) {
    image->png_ = std::make_shared<const std::string>(*std::move(png));
  }
  return image;
}

std::optional<std::string> UIImagePNGRepresentation(const UIImage& image) {
  if (image.png_) return *image.png_;
  return GraphicsServices::current().images->pngRepresentation(image);
}

}  // namespace frelta
