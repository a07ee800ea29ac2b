#include "quick/Theme.h"

namespace frelta {

void Theme::setStyle(UserInterfaceStyle style) {
  if (style == style_) return;
  style_ = style;
  Q_EMIT changed();
}

QColor Theme::resolve(const UIColor& color) const {
  const UIColor::Components c = color.componentsForStyle(style_);
  return QColor::fromRgbF(static_cast<float>(c.red), static_cast<float>(c.green),
                          static_cast<float>(c.blue), static_cast<float>(c.alpha));
}

QColor Theme::segment() const {
  return dark() ? QColor(99, 99, 102) : QColor(Qt::white);
}

}  // namespace frelta
