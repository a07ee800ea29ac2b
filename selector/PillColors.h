#pragma once

#include "graphics/UIColor.h"

namespace frelta {

/// The grounds of pills with white titles; the fractions are held in single precision.
inline UIColor pillOrangeColor() {
  return UIColor::colorWithRed(1.0, static_cast<float>(149) / 255, 0.0, 1.0);
}

inline UIColor pillRedColor() {
  return UIColor::colorWithRed(1.0, static_cast<float>(59) / 255, static_cast<float>(48) / 255,
                               1.0);
}

}  // namespace frelta
