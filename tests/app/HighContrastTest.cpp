#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "fake/FakePlatform.h"
#include "quick/Theme.h"
#include "selector/FreltaToggleButton.h"
#include "selector/PillColors.h"

namespace frelta {
namespace {

/// Of a part from 0 to 1, as the guidelines for accessible text define it.
double linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const double first = luminance(a) + 0.05;
  const double second = luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

TEST(HighContrast, MakesTheButtonsOfCardsReadable) {
  constexpr double kReadable = 4.5;
  const FakePlatform platform;
  const FreltaToggleButton button({0, 0, 76, 30});
  for (const auto style : {UserInterfaceStyle::Light, UserInterfaceStyle::Dark}) {
    Theme theme;
    theme.setStyle(style, false, false);
    const double usual = contrast(theme.resolve(pillRedColor()), Qt::white);

    theme.setStyle(style, true, false);

    EXPECT_LT(usual, kReadable);
    EXPECT_GE(contrast(theme.resolve(pillRedColor()), Qt::white), kReadable);
    EXPECT_GE(contrast(theme.resolve(pillOrangeColor()), Qt::white), kReadable);
    const QColor ground(style == UserInterfaceStyle::Dark ? "#2c2c2e" : "#dcdce0");
    EXPECT_GE(contrast(theme.resolve(button.titleColor()), ground), kReadable);
  }
}

}  // namespace
}  // namespace frelta
