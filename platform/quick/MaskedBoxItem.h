#pragma once

#include <QColor>
#include <QQuickPaintedItem>

#include "uikit/CAShapeLayer.h"

namespace frelta {

/// The background of a view as far as its mask lets it show. Painted, for the software renderer has
/// no masks.
class MaskedBoxItem : public QQuickPaintedItem {
 public:
  explicit MaskedBoxItem(QQuickItem* parent);
  void show(const QColor& color, const CAShapeLayer& mask, const QSizeF& size);
  void paint(QPainter* painter) override;

 private:
  QColor color_;
  CAShapeLayer mask_;
};

}  // namespace frelta
