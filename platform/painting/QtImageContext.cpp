#include "painting/QtImageContext.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "graphics/ImageServices.h"
#include "painting/GaussianBlur.h"
#include "painting/QtPixels.h"

namespace frelta {

namespace {

QRectF pixelRect(const CGRect& rect, double scale) {
  return {rect.minX() * scale, rect.minY() * scale, rect.size.width * scale,
          rect.size.height * scale};
}

QImage transparentPixels(double width, double height) {
  const bool fits = width > 0 && height > 0 &&
                    width * height <= static_cast<double>(ImageServices::kMaximumPixels);
  if (!fits) return {};
  QImage pixels(static_cast<int>(width), static_cast<int>(height), kPixelFormat);
  pixels.fill(Qt::transparent);
  return pixels;
}

void setHints(QPainter& painter) {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

/// Stretches the pixels to the target. The painter looks at four pixels for one: a picture that is
/// to shrink to less than half is averaged first.
void paint(QPainter& painter, const QImage& pixels, const QRectF& target) {
  if (target.width() >= pixels.width() / 2.0 && target.height() >= pixels.height() / 2.0) {
    painter.drawImage(target, pixels);
    return;
  }
  const QSize size(static_cast<int>(std::ceil(target.width())),
                   static_cast<int>(std::ceil(target.height())));
  painter.drawImage(target, pixels.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

Plane alphaOf(const QImage& pixels) {
  Plane plane(static_cast<std::size_t>(pixels.width()), static_cast<std::size_t>(pixels.height()));
  for (int y = 0; y < pixels.height(); ++y) {
    const uchar* from = pixels.constScanLine(y);
    float* to = plane.row(static_cast<std::size_t>(y));
    for (int x = 0; x < pixels.width(); ++x) to[x] = from[4 * x + 3];
  }
  return plane;
}

/// The colour with the plane's alpha, which counts to 255.
QImage tinted(Plane& alpha, const UIColor::Components& colour) {
  QImage pixels(static_cast<int>(alpha.width), static_cast<int>(alpha.height), kPixelFormat);
  const double weights[] = {colour.red * colour.alpha, colour.green * colour.alpha,
                            colour.blue * colour.alpha, colour.alpha};
  for (int y = 0; y < pixels.height(); ++y) {
    const float* from = alpha.row(static_cast<std::size_t>(y));
    uchar* to = pixels.scanLine(y);
    for (int x = 0; x < pixels.width(); ++x)
      for (double weight : weights) *to++ = static_cast<uchar>(std::lround(from[x] * weight));
  }
  return pixels;
}

}  // namespace

QtImageContext::QtImageContext(CGSize size, double scale)
    : scale_(scale),
      canvas_(transparentPixels(std::ceil(size.width * scale), std::ceil(size.height * scale))) {
  if (canvas_.isNull()) return;
  painter_.begin(&canvas_);
  setHints(painter_);
}

void QtImageContext::clipToRoundedRect(const CGRect& rect, double cornerRadius) {
  if (!painter_.isActive()) return;
  QPainterPath path;
  path.addRoundedRect(pixelRect(rect, scale_), cornerRadius * scale_, cornerRadius * scale_);
  painter_.setClipPath(path, Qt::IntersectClip);
}

void QtImageContext::setShadow(CGSize offset, double blurRadius,
                               const UIColor::Components& colour) {
  shadow_ = Shadow{offset, blurRadius, colour};
}

void QtImageContext::drawImage(const UIImage& image, const CGRect& rect) {
  const QRectF target = pixelRect(rect, scale_);
  if (!painter_.isActive() || image.pixels().empty() || target.isEmpty()) return;
  if (shadow_)
    drawWithShadow(*shadow_, pixelsOf(image), target);
  else
    paint(painter_, pixelsOf(image), target);
}

void QtImageContext::drawWithShadow(const Shadow& shadow, const QImage& pixels,
                                    const QRectF& target) {
  const double deviation = shadow.blurRadius * scale_ / 2;
  const QPointF offset(shadow.offset.width * scale_, shadow.offset.height * scale_);
  // What lies outside the canvas throws its shadow onto it too.
  const double margin = static_cast<double>(gaussianReach(deviation)) +
                        std::ceil(std::max(std::abs(offset.x()), std::abs(offset.y())));
  QImage layer = transparentPixels(canvas_.width() + 2 * margin, canvas_.height() + 2 * margin);
  if (layer.isNull()) return;
  QPainter layerPainter(&layer);
  setHints(layerPainter);
  paint(layerPainter, pixels, target.translated(margin, margin));
  layerPainter.end();

  Plane alpha = alphaOf(layer);
  gaussianBlur(alpha, deviation);
  painter_.drawImage(QPointF(-margin, -margin) + offset, tinted(alpha, shadow.colour));
  painter_.drawImage(QPointF(-margin, -margin), layer);
}

std::shared_ptr<const UIImage> QtImageContext::image() const {
  return imageWithPixels(canvas_.copy(), scale_);
}

}  // namespace frelta
