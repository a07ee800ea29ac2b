#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace frelta {

/// A box with rounded corners, fully rounded ends unless a radius is set. Painted, because the
/// software renderer draws the ends of a small Rectangle uneven at fractional scales.
class PillItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(Pill)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  /// Points; negative for half the box's shorter side.
  Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed)
  /// A hairline around it; transparent for none.
  Q_PROPERTY(QColor outline MEMBER outline_ NOTIFY changed)

 public:
  explicit PillItem(QQuickItem* parent = nullptr);
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  QColor color_;
  double radius_ = -1;
  QColor outline_ = Qt::transparent;
};

}  // namespace frelta
