#include "quick/GradientTrackItem.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace frelta {

namespace {
constexpr double kOutlineWidth = 0.5;
constexpr double kSquare = 4;  // of the chequered ground, points
}  // namespace

GradientTrackItem::GradientTrackItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAntialiasing(true);
  connect(this, &GradientTrackItem::changed, this, [this] { update(); });
}

void GradientTrackItem::paint(QPainter* painter) {
  if (colors_.isEmpty()) return;
  painter->setRenderHint(QPainter::Antialiasing);
  const double inset = kOutlineWidth / 2;
  const QRectF box = QRectF(0, 0, width(), height()).adjusted(inset, inset, -inset, -inset);
  QPainterPath track;
  track.addRoundedRect(box, box.height() / 2, box.height() / 2);

  painter->fillPath(track, Qt::white);
  QPainterPath squares;
  for (int row = 0; row * kSquare < height(); ++row) {
    for (int column = row % 2; column * kSquare < width(); column += 2)
      squares.addRect(column * kSquare, row * kSquare, kSquare, kSquare);
  }
  painter->fillPath(squares.intersected(track), QColor(204, 204, 204));

  QLinearGradient gradient(mirrored_ ? box.topRight() : box.topLeft(),
                           mirrored_ ? box.topLeft() : box.topRight());
  const double last = std::max<double>(1, static_cast<double>(colors_.size()) - 1);
  for (qsizetype i = 0; i < colors_.size(); ++i) {
    gradient.setColorAt(static_cast<double>(i) / last, colors_[i]);
  }
  painter->setPen(QPen(outline_, kOutlineWidth));
  painter->setBrush(gradient);
  painter->drawPath(track);
}

}  // namespace frelta
