#pragma once

#include <optional>

#include "foundation/SystemInformation.h"

namespace frelta {

/// A colour in extended sRGB, not premultiplied, that may differ between light and dark appearance.
/// It is resolved when it is drawn.
class UIColor {
 public:
  struct Components {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    bool operator==(const Components&) const = default;
  };

  /// The same colour in both appearances.
  static UIColor colorWithRed(double red, double green, double blue, double alpha);
  static UIColor colorWithLightAndDark(Components light, Components dark);

  /// Part of the way from one to the other, 0 to 1, in each appearance.
  static UIColor colorBetween(const UIColor& from, const UIColor& to, double fraction);

  static UIColor clearColor();
  static UIColor whiteColor();
  /// As light on a dark ground as it is dark on a light one, so that it can be read on both.
  static UIColor darkGrayColor();
  static UIColor grayColor();

  // The platform's adaptive colours, with the values that its design resources publish.
  static UIColor labelColor();
  static UIColor secondaryLabelColor();
  static UIColor tertiaryLabelColor();
  static UIColor placeholderTextColor();
  static UIColor separatorColor();
  static UIColor systemBackgroundColor();
  static UIColor systemGroupedBackgroundColor();
  static UIColor secondarySystemGroupedBackgroundColor();
  static UIColor systemBlueColor();
  static UIColor systemGreenColor();
  static UIColor systemRedColor();
  static UIColor systemGray3Color();
  static UIColor systemGray4Color();
  static UIColor secondarySystemFillColor();

  UIColor colorWithAlphaComponent(double alpha) const;
  /// The components in the appearance of the key window, else of the first; light without one.
  /// Nothing for a colour that has none, which this class does not make.
  std::optional<Components> getRed() const;
  Components componentsForStyle(UserInterfaceStyle style) const {
    return style == UserInterfaceStyle::Dark ? dark_ : light_;
  }
  bool operator==(const UIColor&) const = default;

 private:
  UIColor(Components light, Components dark) : light_(light), dark_(dark) {}
  Components light_;
  Components dark_;
};

}  // namespace frelta
