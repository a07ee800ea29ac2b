#include "quick/PillItem.h"

#include <QPainter>
#include <algorithm>

namespace frelta {

namespace {
constexpr double kOutlineWidth = 0.5;
}  // namespace

PillItem::PillItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAntialiasing(true);
  connect(this, &PillItem::changed, this, [this] { update(); });
}

void PillItem::paint(QPainter* painter) {
  painter->setRenderHint(QPainter::Antialiasing);
  const bool outlined = outline_.alpha() > 0;
  const double inset = outlined ? kOutlineWidth / 2 : 0;
  const QRectF box = QRectF(0, 0, width(), height()).adjusted(inset, inset, -inset, -inset);
  const double most = std::min(box.width(), box.height()) / 2;
  const double radius = radius_ < 0 ? most : std::min(radius_, most);
  painter->setPen(outlined ? QPen(outline_, kOutlineWidth) : QPen(Qt::NoPen));
  painter->setBrush(color_);
  painter->drawRoundedRect(box, radius, radius);
}

}  // namespace frelta
