#include "pages/PicturePreview.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

#include "foundation/Platform.h"
#include "graphics/GraphicsServices.h"

namespace frelta {

namespace {

constexpr double kMaximumSide = 320;

struct Preview {
  std::optional<std::size_t> hash;  // of the file's bytes
  std::shared_ptr<const UIImage> image;
};

Preview& lastPreview() {
  static Preview preview;
  return preview;
}

std::shared_ptr<const UIImage> shrunk(const UIImage& picture) {
  const auto [width, height] = picture.size();
  const double scale = std::min(1.0, kMaximumSide / std::max(width, height));
  const CGRect box(0, 0, std::max(1.0, std::round(width * scale)),
                   std::max(1.0, std::round(height * scale)));
  const auto context = GraphicsServices::current().images->beginImageContext(box.size, 1);
  context->drawImage(picture, box);
  return context->image();
}

std::size_t hashOf(std::string_view bytes) {
  return std::hash<std::string_view>{}(bytes);
}

}  // namespace

std::shared_ptr<const UIImage> previewOfPictureAtPath(std::string_view path) {
  const FileManager& files = *Platform::current().fileManager;
  // Opening a device or a pipe, even without waiting, can make something happen at its other end.
  if (!files.fileSizeAtPath(path)) return nullptr;
  const auto bytes = files.contentsAtPath(path, ImageServices::kMaximumBytes);
  if (!bytes) return nullptr;
  if (const std::size_t hash = hashOf(*bytes); lastPreview().hash != hash) {
    const auto picture = GraphicsServices::current().images->imageWithData(*bytes);
    lastPreview() = {hash, picture ? shrunk(*picture) : nullptr};
  }
  return lastPreview().image;
}

void keepPreview(std::string_view bytes, const UIImage& picture) {
  lastPreview() = {hashOf(bytes), shrunk(picture)};
}

}  // namespace frelta
