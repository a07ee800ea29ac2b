#pragma once

#include "graphics/CGGeometry.h"

namespace frelta {

// What a draggable row leaves to its drag handle, points.
inline constexpr float kHandleRoom = 35;
inline constexpr float kDraggableLabelInset = 10;

/// Where a header's button and labels stand, in its card's coordinates: points, held in single
/// precision.
struct HeaderGeometry {
  float buttonX;
  float labelX;
  float labelWidth;

  /// Beside the icon, with room for the drag handle of a draggable row.
  static HeaderGeometry collapsed(double cardWidth, const CGRect& icon, bool isDraggable);
  /// In place of the icon, which is not shown then.
  static HeaderGeometry expanded(double cardWidth, bool isDraggable);
};

}  // namespace frelta
