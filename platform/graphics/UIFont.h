#pragma once

namespace frelta {

/// The system font at a size in points.
struct UIFont {
  enum class Weight { Regular, Semibold, Bold };

  double pointSize = 17;
  Weight weight = Weight::Regular;

  static UIFont systemFontOfSize(double size) { return {size, Weight::Regular}; }
  static UIFont semiboldSystemFontOfSize(double size) { return {size, Weight::Semibold}; }
  static UIFont boldSystemFontOfSize(double size) { return {size, Weight::Bold}; }
  bool operator==(const UIFont&) const = default;
};

}  // namespace frelta
