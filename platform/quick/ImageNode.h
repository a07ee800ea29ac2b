#pragma once

#include <QRectF>
#include <memory>

#include "graphics/UIImage.h"
#include "quick/ImageTextures.h"
#include "quick/ViewNode.h"
#include "uikit/UIImageView.h"

namespace frelta {

class ImageNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")

 public:
  ImageNode(UIImageView& view, ViewMirror& mirror) : ViewNode(view, mirror) {}
  QString looks() const override { return QStringLiteral("Image"); }

  const std::shared_ptr<const UIImage>& image() const { return image_; }
  /// Where the picture is drawn in the item.
  QRectF imageRect() const { return imageRect_; }
  ImageTextures& textures() const;

 protected:
  void syncContents() override;

 private:
  std::shared_ptr<const UIImage> image_;
  QRectF imageRect_;
};

/// Draws an image node's picture.
class PictureItem : public QQuickItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(Picture)
  Q_PROPERTY(ImageNode* node READ node WRITE setNode NOTIFY nodeChanged)

 public:
  explicit PictureItem(QQuickItem* parent = nullptr);
  ImageNode* node() const { return node_; }
  void setNode(ImageNode* node);

 Q_SIGNALS:
  void nodeChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData*) override;

 private:
  void showNode();

  QPointer<ImageNode> node_;
  std::shared_ptr<const UIImage> shown_;
  QRectF shownRect_;
};

}  // namespace frelta
