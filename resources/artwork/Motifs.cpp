#include "Motifs.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <array>

namespace frelta::artwork {

namespace {

void fillDownwards(QPainter& painter, const QRectF& rect, QColor top, QColor bottom) {
  QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
  gradient.setColorAt(0, top);
  gradient.setColorAt(1, bottom);
  painter.fillRect(rect, gradient);
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, QBrush brush) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(brush);
  painter.drawRoundedRect(rect, radius, radius);
}

void fillDisc(QPainter& painter, QPointF centre, double radius, QBrush brush) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(brush);
  painter.drawEllipse(centre, radius, radius);
}

void fillGlow(QPainter& painter, QPointF centre, double radius, QColor colour) {
  QRadialGradient gradient(centre, radius);
  gradient.setColorAt(0, colour);
  colour.setAlpha(0);
  gradient.setColorAt(1, colour);
  fillDisc(painter, centre, radius, gradient);
}

/// A hill line across the rectangle, from one height to another, filled to the bottom.
void fillHill(QPainter& painter, const QRectF& rect, double left, double bulge, double right,
              QBrush brush) {
  QPainterPath hill(rect.bottomLeft());
  hill.lineTo(rect.left(), left);
  hill.cubicTo(rect.left() + rect.width() * 0.35, left - bulge, rect.left() + rect.width() * 0.65,
               right + bulge, rect.right(), right);
  hill.lineTo(rect.bottomRight());
  painter.fillPath(hill, brush);
}

/// Three rows of keys, the last one with a space bar; side is a key's width.
void paintKeys(QPainter& painter, QPointF corner, double side, double gap, QColor colour) {
  const double step = side + gap;
  for (int row = 0; row < 2; ++row)
    for (int column = 0; column < 4; ++column)
      fillRounded(painter, {corner.x() + column * step, corner.y() + row * step, side, side},
                  side * 0.25, colour);
  fillRounded(painter, {corner.x() + step * 0.5, corner.y() + 2 * step, 3 * step - gap, side},
              side * 0.25, colour);
}

void paintDunesOn(QPainter& painter, const QRectF& rect) {
  const auto at = [&](double part) { return rect.top() + rect.height() * part; };
  fillDownwards(painter, rect, QColor(44, 31, 92), QColor(247, 150, 112));
  const QPointF sun(rect.left() + rect.width() * 0.68, at(0.42));
  fillGlow(painter, sun, rect.height() * 0.5, QColor(255, 225, 160, 170));
  fillDisc(painter, sun, rect.height() * 0.13, QColor(255, 244, 214));
  fillHill(painter, rect, at(0.62), rect.height() * 0.16, at(0.7), QColor(196, 92, 110));
  fillHill(painter, rect, at(0.84), rect.height() * -0.14, at(0.66), QColor(126, 52, 104));
  fillHill(painter, rect, at(0.8), rect.height() * 0.1, at(0.96), QColor(66, 30, 82));
}

void paintBackdrop(QPainter& painter) {
  const QRectF square({0, 0}, kIconSize);
  fillDownwards(painter, square, QColor(122, 92, 250), QColor(42, 36, 140));
  fillGlow(painter, {14, 8}, 38, QColor(120, 220, 255, 150));
  fillGlow(painter, {54, 58}, 34, QColor(255, 100, 190, 130));
}

/// To the icon's square with its corners rounded off.
void clipRounded(QPainter& painter, double radius) {
  QPainterPath shape;
  shape.addRoundedRect(QRectF({0, 0}, kIconSize), radius, radius);
  painter.setClipPath(shape);
}

}  // namespace

void paintFreltaIcon(QPainter& painter) {
  paintBackdrop(painter);
  paintKeys(painter, {11.5, 19}, 7, 3, QColor(255, 255, 255, 235));
  fillRounded(painter, {21.5, 19, 7, 7}, 1.75, QColor(255, 205, 90));
}

void paintApplicationIcon(QPainter& painter) {
  constexpr double kMargin = 3.75;
  painter.save();
  painter.translate(kMargin, kMargin);
  painter.scale(1 - 2 * kMargin / kIconSize.width(), 1 - 2 * kMargin / kIconSize.height());
  clipRounded(painter, 13);
  paintFreltaIcon(painter);
  painter.restore();
}

void paintSmallApplicationIcon(QPainter& painter) {
  painter.save();
  clipRounded(painter, 12);
  paintBackdrop(painter);
  const QColor key(255, 255, 255, 240);
  fillRounded(painter, {8, 15, 12, 12}, 3, key);
  fillRounded(painter, {24, 15, 12, 12}, 3, QColor(255, 205, 90));
  fillRounded(painter, {40, 15, 12, 12}, 3, key);
  fillRounded(painter, {8, 34, 44, 12}, 3, key);
  painter.restore();
}

void paintPlaceholder(QPainter& painter) {
  const QRectF square({0, 0}, kIconSize);
  fillDownwards(painter, square, QColor(236, 237, 242), QColor(208, 210, 219));
  paintKeys(painter, {11.5, 16}, 7, 3, QColor(255, 255, 255, 190));
  QPen pen(QColor(150, 153, 166), 1.6, Qt::CustomDashLine, Qt::RoundCap);
  pen.setDashPattern({3.2, 2.4});
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(6, 10.5, 48, 39), 7, 7);
}

void paintImagesThemeIcon(QPainter& painter) {
  paintDunesOn(painter, {{0, 0}, kIconSize});
}

void paintHTMLThemeIcon(QPainter& painter) {
  const QRectF square({0, 0}, kIconSize);
  fillDownwards(painter, square, QColor(10, 24, 46), QColor(12, 66, 84));
  constexpr std::array kBands{QColor(64, 224, 200), QColor(90, 150, 255), QColor(190, 110, 255)};
  for (std::size_t i = 0; i < kBands.size(); ++i) {
    QPainterPath wave;
    const double y = 20 + 9.0 * static_cast<double>(i);
    wave.moveTo(-4, y + 8);
    wave.cubicTo(16, y - 16, 34, y + 22, 64, y - 6);
    QColor band = kBands[i];
    band.setAlpha(60);
    painter.strokePath(wave, QPen(band, 11, Qt::SolidLine, Qt::RoundCap));
    band.setAlpha(225);
    painter.strokePath(wave, QPen(band, 3.2, Qt::SolidLine, Qt::RoundCap));
  }
}

void paintWidgetIcon(QPainter& painter) {
  const QRectF square({0, 0}, kIconSize);
  const QPointF centre = square.center();
  fillDownwards(painter, square, QColor(255, 176, 92), QColor(236, 84, 98));
  fillDisc(painter, centre + QPointF(0, 1), 20.5, QColor(120, 30, 50, 70));
  fillDisc(painter, centre, 20, QColor(255, 250, 244));
  for (int hour = 0; hour < 12; ++hour) {
    painter.save();
    painter.translate(centre);
    painter.rotate(30 * hour);
    const double length = hour % 3 == 0 ? 4 : 2;
    fillRounded(painter, {-0.6, -18, 1.2, length}, 0.6, QColor(150, 120, 120));
    painter.restore();
  }
  const auto hand = [&](double angle, double length, double width, QColor colour) {
    painter.save();
    painter.translate(centre);
    painter.rotate(angle);
    fillRounded(painter, {-width / 2, -length, width, length + 2}, width / 2, colour);
    painter.restore();
  };
  hand(305, 10, 3, QColor(60, 44, 60));
  hand(60, 15, 2.4, QColor(60, 44, 60));
  hand(170, 16, 1, QColor(236, 84, 98));
  fillDisc(painter, centre, 2.2, QColor(236, 84, 98));
}

void paintDunes(QPainter& painter) {
  paintDunesOn(painter, {{0, 0}, kKeyboardSize});
}

void paintKey(QPainter& painter) {
  const QRectF cap(0, 0, kKeySize.width(), kKeySize.height() - 2);
  fillRounded(painter, cap.translated(0, 2), 6, QColor(30, 12, 48, 150));
  QLinearGradient face(cap.topLeft(), cap.bottomLeft());
  face.setColorAt(0, QColor(255, 255, 255, 96));
  face.setColorAt(1, QColor(255, 255, 255, 48));
  fillRounded(painter, cap, 6, face);
}

}  // namespace frelta::artwork
