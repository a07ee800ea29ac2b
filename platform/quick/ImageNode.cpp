#include "quick/ImageNode.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>
#include <cmath>

#include "quick/ViewMirror.h"

namespace frelta {

namespace {

/// Keeps the texture for as long as it is drawn.
class PictureNode : public QSGNode {
 public:
  explicit PictureNode(QQuickWindow& window) : picture_(window.createImageNode()) {
    picture_->setOwnsTexture(false);
    picture_->setFiltering(QSGTexture::Linear);
    appendChildNode(picture_);
  }
  void show(std::shared_ptr<QSGTexture> texture, const QRectF& rect) {
    picture_->setTexture(texture.get());
    picture_->setSourceRect(QRectF(QPointF(), texture->textureSize()));
    picture_->setRect(rect);
    texture_ = std::move(texture);
  }

 private:
  QSGImageNode* picture_;  // owned by the scene
  std::shared_ptr<QSGTexture> texture_;
};

}  // namespace

ImageTextures& ImageNode::textures() const {
  return mirror().textures();
}

void ImageNode::syncContents() {
  const UIImageView& view = *viewAs<UIImageView>(*this);
  image_ = view.image();
  const CGRect rect = view.imageRect(view.presentation().frame.size);
  imageRect_ = {rect.minX(), rect.minY(), rect.size.width, rect.size.height};
}

PictureItem::PictureItem(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
}

void PictureItem::setNode(ImageNode* node) {
  if (node == node_) return;
  node_ = node;
  if (node_) connect(node_, &ViewNode::changed, this, &PictureItem::showNode);
  showNode();
  Q_EMIT nodeChanged();
}

void PictureItem::showNode() {
  if (!node_ || (shown_ == node_->image() && shownRect_ == node_->imageRect())) return;
  shown_ = node_->image();
  shownRect_ = node_->imageRect();
  update();
}

QSGNode* PictureItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  const double scale = window()->effectiveDevicePixelRatio();
  const QSize pixels(static_cast<int>(std::lround(shownRect_.width() * scale)),
                     static_cast<int>(std::lround(shownRect_.height() * scale)));
  auto texture = node_ ? node_->textures().textureFor(shown_, pixels, *window()) : nullptr;
  if (!texture) {
    delete old;
    return nullptr;
  }
  auto* node = static_cast<PictureNode*>(old);
  if (!node) node = new PictureNode(*window());
  node->show(std::move(texture), shownRect_);
  return node;
}

}  // namespace frelta
