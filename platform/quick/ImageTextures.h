#pragma once

#include <QSize>
#include <map>
#include <memory>
#include <tuple>

#include "graphics/UIImage.h"

class QQuickWindow;
class QSGTexture;

namespace frelta {

/// The pictures on the screen, each brought to the size of its pixels there once, however many
/// items show it. Whoever shows a picture shares its texture; the last one takes it along.
class ImageTextures {
 public:
  /// On the thread that draws. Null for a picture without pixels.
  std::shared_ptr<QSGTexture> textureFor(const std::shared_ptr<const UIImage>& image, QSize pixels,
                                         QQuickWindow& window);
  /// How many pictures are on the screen.
  std::size_t count() const;

 private:
  using Key = std::tuple<const UIImage*, int, int>;
  // A texture holds its picture, so a key is never another picture's while the texture lives.
  std::map<Key, std::weak_ptr<QSGTexture>> textures_;
};

}  // namespace frelta
