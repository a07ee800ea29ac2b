#pragma once

#include <QImage>
#include <QPainter>
#include <optional>

#include "graphics/UIGraphicsImageContext.h"

namespace frelta {

/// A canvas painted by Qt.
class QtImageContext : public UIGraphicsImageContext {
 public:
  /// As ImageServices::beginImageContext() says.
  QtImageContext(CGSize size, double scale);

  void clipToRoundedRect(const CGRect& rect, double cornerRadius) override;
  void setShadow(CGSize offset, double blurRadius, const UIColor::Components& colour) override;
  void drawImage(const UIImage& image, const CGRect& rect) override;
  std::shared_ptr<const UIImage> image() const override;

 private:
  struct Shadow {
    CGSize offset;
    double blurRadius;
    UIColor::Components colour;
  };

  void drawWithShadow(const Shadow& shadow, const QImage& pixels, const QRectF& target);

  double scale_;
  QImage canvas_;
  QPainter painter_;
  std::optional<Shadow> shadow_;
};

}  // namespace frelta
