#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "styles/FreltaStyleSelector.h"
#include "tests/styles/StylesTest.h"

namespace frelta {

/// A screen scale of its own and pictures to draw with.
class ArtworkTest : public StylesTest {
 protected:
  using Image = FreltaStyleSelector::Image;

  /// A disc on a ground that runs from one colour to another: every edge and direction shows.
  static Image disc(int side, Pixel top, Pixel bottom) {
    return picture(side, side, 1, [=](int x, int y) {
      const double fromTop = static_cast<double>(y) / side;
      if (std::hypot(x + 0.5 - side * 0.5, y + 0.5 - side * 0.4) < side * 0.25) return kWhite;
      Pixel pixel = top;
      for (std::size_t i = 0; i < pixel.size(); ++i)
        pixel[i] = static_cast<int>(std::lround(top[i] + (bottom[i] - top[i]) * fromTop));
      return pixel;
    });
  }
  static Image blueDisc() { return disc(128, {90, 200, 250, 255}, {10, 60, 200, 255}); }
  static Image redDisc() { return disc(96, {255, 190, 60, 255}, {230, 40, 60, 255}); }
  static Image greenDisc() { return disc(200, {190, 240, 90, 255}, {10, 140, 90, 255}); }

  int pixels(double points) const {
    return static_cast<int>(std::lround(points * platform.system.scale));
  }
};

}  // namespace frelta
