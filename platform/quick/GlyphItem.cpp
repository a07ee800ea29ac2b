#include "quick/GlyphItem.h"

#include <QPainter>

namespace frelta {

GlyphItem::GlyphItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAntialiasing(true);
  connect(this, &GlyphItem::changed, this, [this] { update(); });
}

// A disc with a cross cut out of it.
void GlyphItem::paintClear(QPainter* painter) const {
  const QRectF disc(0, 0, width(), height());
  painter->setBrush(color_);
  painter->setPen(Qt::NoPen);
  painter->drawEllipse(disc);
  const double inset = width() * 0.32;
  const QRectF cross = disc.adjusted(inset, inset, -inset, -inset);
  painter->setCompositionMode(QPainter::CompositionMode_Clear);
  painter->setPen(QPen(Qt::black, width() * 0.1, Qt::SolidLine, Qt::RoundCap));
  painter->drawLine(cross.topLeft(), cross.bottomRight());
  painter->drawLine(cross.topRight(), cross.bottomLeft());
}

void GlyphItem::paint(QPainter* painter) {
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(color_, thickness_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const double inset = thickness_ / 2;
  const QRectF box = QRectF(0, 0, width(), height()).adjusted(inset, inset, -inset, -inset);
  QPolygonF line;
  switch (shape_) {
    case ChevronRight:
      line << box.topLeft() << QPointF(box.right(), box.center().y()) << box.bottomLeft();
      break;
    case ChevronLeft:
      line << box.topRight() << QPointF(box.left(), box.center().y()) << box.bottomRight();
      break;
    case Clear:
      paintClear(painter);
      return;
    case Plus:
      painter->drawLine(QPointF(box.center().x(), box.top()),
                        QPointF(box.center().x(), box.bottom()));
      line << QPointF(box.left(), box.center().y()) << QPointF(box.right(), box.center().y());
      break;
    case Checkmark:
      line << QPointF(box.left(), box.top() + box.height() * 0.55)
           << QPointF(box.left() + box.width() * 0.36, box.bottom()) << box.topRight();
      break;
  }
  painter->drawPolyline(line);
}

}  // namespace frelta
