#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace frelta {

/// One of the small line drawings of the lists, as large as the item.
class GlyphItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(Glyph)
  Q_PROPERTY(Shape shape MEMBER shape_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  Q_PROPERTY(double thickness MEMBER thickness_ NOTIFY changed)

 public:
  enum Shape { ChevronRight, ChevronLeft, Checkmark, Clear, Plus };
  Q_ENUM(Shape)

  explicit GlyphItem(QQuickItem* parent = nullptr);
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  void paintClear(QPainter* painter) const;

  Shape shape_ = ChevronRight;
  QColor color_;
  double thickness_ = 2;
};

}  // namespace frelta
