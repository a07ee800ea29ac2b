#include "pages/PicturePreview.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "foundation/MakeBeside.h"
#include "foundation/Platform.h"
#include "graphics/GraphicsServices.h"

namespace frelta {

namespace {

constexpr double kMaximumSide = 320;

struct Preview {
  std::string path;
  std::optional<std::size_t> hash;  // of the file's bytes; nothing when they cannot be read
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

/// Of the file's picture as it is now; the one that is known if that is of the same bytes. Touches
/// nothing of the main thread's.
Preview previewOf(std::string path, const Preview& known) {
  const FileManager& files = *Platform::current().fileManager;
  // Opening a device or a pipe, even without waiting, can make something happen at its other end.
  if (!files.fileSizeAtPath(path)) return {};
  const auto bytes = files.contentsAtPath(path, ImageServices::kMaximumBytes);
  if (!bytes) return {};
  const std::size_t hash = hashOf(*bytes);
  if (known.hash == hash) return {std::move(path), hash, known.image};
  const auto picture = GraphicsServices::current().images->imageWithData(*bytes);
  return {std::move(path), hash, picture ? shrunk(*picture) : nullptr};
}

}  // namespace

void loadPreviewOfPictureAtPath(std::string path, std::weak_ptr<const void> wanted,
                                std::function<void(std::shared_ptr<const UIImage>)> done) {
  makeBeside<Preview>(
      Platform::current().workQueue, std::move(wanted),
      [path = std::move(path), known = lastPreview()] { return previewOf(path, known); },
      [done = std::move(done)](Preview made) {
        if (made.hash) lastPreview() = made;
        done(std::move(made.image));
      });
}

std::shared_ptr<const UIImage> lastPreviewOfPictureAtPath(std::string_view path) {
  return lastPreview().path == path ? lastPreview().image : nullptr;
}

void keepPreview(std::string path, std::string_view bytes, const UIImage& picture) {
  lastPreview() = {std::move(path), hashOf(bytes), shrunk(picture)};
}

}  // namespace frelta
