#include "quick/Theme.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace frelta {

namespace {

constexpr UIColor::Components rgb(int red, int green, int blue) {
  return {red / 255.0, green / 255.0, blue / 255.0, 1};
}

/// The same in both appearances, as pages set colours by their parts.
UIColor fixed(double red, double green, double blue) {
  return UIColor::colorWithRed(red, green, blue, 1);
}

constexpr double part(int value) {
  return static_cast<float>(value) / 255;
}

/// The platform's values for increased contrast; what is see-through otherwise is made solid.
UIColor withHighContrast(const UIColor& color) {
  static const std::pair<UIColor, UIColor> kColors[] = {
      {UIColor::grayColor(), UIColor::colorWithLightAndDark(rgb(84, 84, 91), rgb(174, 174, 178))},
      {UIColor::secondaryLabelColor(),
       UIColor::colorWithLightAndDark(rgb(60, 60, 67), rgb(235, 235, 245))},
      {UIColor::tertiaryLabelColor(),
       UIColor::colorWithLightAndDark(rgb(84, 84, 91), rgb(199, 199, 207))},
      {UIColor::separatorColor(),
       UIColor::colorWithLightAndDark(rgb(108, 108, 112), rgb(142, 142, 147))},
      {UIColor::systemBlueColor(),
       UIColor::colorWithLightAndDark(rgb(0, 64, 221), rgb(64, 156, 255))},
      {UIColor::systemGreenColor(),
       UIColor::colorWithLightAndDark(rgb(36, 138, 61), rgb(48, 219, 91))},
      {UIColor::systemRedColor(),
       UIColor::colorWithLightAndDark(rgb(215, 0, 21), rgb(255, 105, 97))},
      {UIColor::systemGray3Color(),
       UIColor::colorWithLightAndDark(rgb(84, 84, 91), rgb(174, 174, 178))},
      // Titles and pills: blue to read on any ground, orange and red below white.
      {fixed(0, 0.478, 1), UIColor::colorWithLightAndDark(rgb(0, 64, 221), rgb(64, 156, 255))},
      {fixed(1, part(149), 0), fixed(201 / 255.0, 52 / 255.0, 0)},
      {fixed(1, part(59), part(48)), fixed(215 / 255.0, 0, 21 / 255.0)},
  };
  const auto* found = std::ranges::find(kColors, color, &std::pair<UIColor, UIColor>::first);
  return found == std::end(kColors) ? color : found->second;
}

}  // namespace

void Theme::setStyle(UserInterfaceStyle style, bool highContrast, bool reducedMotion) {
  if (style == style_ && highContrast == highContrast_ && reducedMotion == reducedMotion_) return;
  style_ = style;
  highContrast_ = highContrast;
  reducedMotion_ = reducedMotion;
  Q_EMIT changed();
}

QColor Theme::resolve(const UIColor& color) const {
  const UIColor::Components c =
      (highContrast_ ? withHighContrast(color) : color).componentsForStyle(style_);
  return QColor::fromRgbF(static_cast<float>(c.red), static_cast<float>(c.green),
                          static_cast<float>(c.blue), static_cast<float>(c.alpha));
}

QColor Theme::segment() const {
  return dark() ? QColor(99, 99, 102) : QColor(Qt::white);
}

QColor Theme::border() const {
  return highContrast_ ? label() : QColor(Qt::transparent);
}

}  // namespace frelta
