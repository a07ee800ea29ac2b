#pragma once

#include "graphics/CGGeometry.h"

namespace frelta {

/// The platform's rectangle corners, with its values.
enum UIRectCorner : unsigned {
  UIRectCornerTopLeft = 1 << 0,
  UIRectCornerTopRight = 1 << 1,
  UIRectCornerBottomLeft = 1 << 2,
  UIRectCornerBottomRight = 1 << 3,
  UIRectCornerAllCorners = ~0u,
};

/// The outline of a rectangle some of whose corners are rounded. A value.
class UIBezierPath {
 public:
  /// The path without an area.
  UIBezierPath() = default;
  /// The corners are a sum of UIRectCorner, the radii (points) those along each axis; the outline
  /// takes no more of them than half the rectangle.
  static UIBezierPath bezierPathWithRoundedRect(const CGRect& rect, unsigned corners,
                                                CGSize cornerRadii) {
    UIBezierPath path;
    path.bounds_ = rect;
    path.corners_ = corners;
    path.cornerRadii_ = cornerRadii;
    return path;
  }

  const CGRect& bounds() const { return bounds_; }
  unsigned roundedCorners() const { return corners_; }
  CGSize cornerRadii() const { return cornerRadii_; }
  bool operator==(const UIBezierPath&) const = default;

 private:
  CGRect bounds_;
  unsigned corners_ = 0;
  CGSize cornerRadii_;
};

}  // namespace frelta
