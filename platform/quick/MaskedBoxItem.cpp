#include "quick/MaskedBoxItem.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace frelta {

MaskedBoxItem::MaskedBoxItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAntialiasing(true);
  // Behind the view's subviews.
  setZ(-1);
}

void MaskedBoxItem::show(const QColor& color, const CAShapeLayer& mask, const QSizeF& size) {
  setSize(size);
  if (color == color_ && mask == mask_) return;
  color_ = color;
  mask_ = mask;
  update();
}

void MaskedBoxItem::paint(QPainter* painter) {
  const CGRect& outline = mask_.path.bounds();
  const CGSize radii = mask_.path.cornerRadii();
  const QRectF box(mask_.frame.minX() + outline.minX(), mask_.frame.minY() + outline.minY(),
                   outline.size.width, outline.size.height);
  const double rx = std::clamp(radii.width, 0.0, std::max(0.0, box.width() / 2));
  const double ry = std::clamp(radii.height, 0.0, std::max(0.0, box.height() / 2));
  // Corners that are not rounded are filled up.
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  path.addRoundedRect(box, rx, ry);
  const auto fill = [&](UIRectCorner corner, double x, double y) {
    if (!(mask_.path.roundedCorners() & corner)) path.addRect(x, y, rx, ry);
  };
  fill(UIRectCornerTopLeft, box.left(), box.top());
  fill(UIRectCornerTopRight, box.right() - rx, box.top());
  fill(UIRectCornerBottomLeft, box.left(), box.bottom() - ry);
  fill(UIRectCornerBottomRight, box.right() - rx, box.bottom() - ry);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->fillPath(path.simplified(), color_);
}

}  // namespace frelta
