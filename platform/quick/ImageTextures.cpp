#include "quick/ImageTextures.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGTexture>
#include <algorithm>

namespace frelta {

namespace {

/// A look at the pixels, without a copy; the image outlives it.
QImage qtImage(const UIImage& image) {
  return {image.pixels().data(), image.pixelWidth(), image.pixelHeight(),
          qsizetype{4} * image.pixelWidth(), QImage::Format_RGBA8888_Premultiplied};
}

using ImageAndTexture = std::pair<std::shared_ptr<const UIImage>, std::unique_ptr<QSGTexture>>;

}  // namespace

std::shared_ptr<QSGTexture> ImageTextures::textureFor(const std::shared_ptr<const UIImage>& image,
                                                      QSize pixels, QQuickWindow& window) {
  if (!image || image->pixels().empty() || pixels.isEmpty()) return nullptr;
  std::weak_ptr<QSGTexture>& known = textures_[{image.get(), pixels.width(), pixels.height()}];
  if (auto texture = known.lock()) return texture;
  QImage picture = qtImage(*image);
  // Once here rather than in each frame.
  if (picture.size() != pixels) {
    picture = picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  } else {
    picture = picture.copy();
  }
  const auto pair = std::make_shared<ImageAndTexture>(
      image, std::unique_ptr<QSGTexture>(
                 window.createTextureFromImage(picture, QQuickWindow::TextureHasAlphaChannel)));
  std::shared_ptr<QSGTexture> texture(pair, pair->second.get());
  known = texture;
  std::erase_if(textures_, [](const auto& entry) { return entry.second.expired(); });
  return texture;
}

std::size_t ImageTextures::count() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(textures_, [](const auto& entry) { return !entry.second.expired(); }));
}

}  // namespace frelta
