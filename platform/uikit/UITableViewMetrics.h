#pragma once

namespace frelta {

/// Sizes that more than one part of a table uses, points.
struct UITableViewMetrics {
  /// Section titles, the platform's footnote size.
  static constexpr double kTitlePointSize = 13;
  /// Between the cards of an inset grouped table and its edges.
  static constexpr double kCardInset = 16;
};

}  // namespace frelta
