#pragma once

#include <cstddef>
#include <vector>

namespace frelta {

/// One number for each pixel, rows from the top.
struct Plane {
  Plane(std::size_t w, std::size_t h) : width(w), height(h), values(w * h) {}
  float* row(std::size_t y) { return values.data() + y * width; }

  std::size_t width;
  std::size_t height;
  std::vector<float> values;
};

/// How far a blur with that standard deviation reaches, in pixels.
std::size_t gaussianReach(double deviation);

/// Blurs the plane; beyond its edges it counts as 0. Deviation in pixels.
void gaussianBlur(Plane& plane, double deviation);

}  // namespace frelta
