#pragma once

namespace frelta {

/// Geometry in points; y grows downwards.
struct CGPoint {
  double x = 0;
  double y = 0;
  bool operator==(const CGPoint&) const = default;
};

struct CGSize {
  double width = 0;
  double height = 0;
  bool operator==(const CGSize&) const = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;

  CGRect() = default;
  CGRect(CGPoint o, CGSize s) : origin(o), size(s) {}
  CGRect(double x, double y, double width, double height) : origin{x, y}, size{width, height} {}

  double minX() const { return origin.x; }
  double minY() const { return origin.y; }
  double midX() const { return origin.x + size.width / 2; }
  double midY() const { return origin.y + size.height / 2; }
  double maxX() const { return origin.x + size.width; }
  double maxY() const { return origin.y + size.height; }
  /// Left and top edges belong to the rectangle, right and bottom ones do not.
  bool contains(CGPoint p) const {
    return p.x >= minX() && p.x < maxX() && p.y >= minY() && p.y < maxY();
  }
  bool operator==(const CGRect&) const = default;
};

struct UIEdgeInsets {
  double top = 0;
  double left = 0;
  double bottom = 0;
  double right = 0;
  bool operator==(const UIEdgeInsets&) const = default;
};

}  // namespace frelta
