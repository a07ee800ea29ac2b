#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace frelta {

/// A box with fully rounded ends. Painted, because the software renderer draws the ends of a small
/// Rectangle uneven at fractional scales.
class PillItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(Pill)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  /// A hairline around it; transparent for none.
  Q_PROPERTY(QColor outline MEMBER outline_ NOTIFY changed)

 public:
  explicit PillItem(QQuickItem* parent = nullptr);
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  QColor color_;
  QColor outline_ = Qt::transparent;
};

}  // namespace frelta
