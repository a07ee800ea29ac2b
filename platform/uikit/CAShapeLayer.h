#pragma once

#include "uikit/UIBezierPath.h"

namespace frelta {

/// A filled path. A value: a view that is masked with it keeps a copy.
struct CAShapeLayer {
  /// In the coordinates of the view that it masks.
  CGRect frame;
  /// In the layer's own coordinates.
  UIBezierPath path;
  bool operator==(const CAShapeLayer&) const = default;
};

}  // namespace frelta
