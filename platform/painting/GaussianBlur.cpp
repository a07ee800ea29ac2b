#include "painting/GaussianBlur.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace frelta {

namespace {

/// Half of a symmetric kernel, its middle first. Each weight is the Gaussian's integral over a
/// pixel, so that the shadow of a straight edge is exact at every pixel's centre.
std::vector<float> halfKernel(double deviation) {
  std::vector<float> kernel(gaussianReach(deviation) + 1);
  const auto below = [&](double x) { return std::erf(x / (deviation * std::sqrt(2.0))) / 2; };
  const double total = 2 * below(static_cast<double>(kernel.size()) - 0.5);
  for (std::size_t i = 0; i < kernel.size(); ++i) {
    const auto distance = static_cast<double>(i);
    kernel[i] = static_cast<float>((below(distance + 0.5) - below(distance - 0.5)) / total);
  }
  return kernel;
}

void add(float* to, const float* from, std::size_t count, float weight) {
  for (std::size_t i = 0; i < count; ++i) to[i] += weight * from[i];
}

}  // namespace

std::size_t gaussianReach(double deviation) {
  return static_cast<std::size_t>(std::ceil(3 * std::max(0.0, deviation)));
}

void gaussianBlur(Plane& plane, double deviation) {
  const std::size_t width = plane.width;
  const std::size_t height = plane.height;
  if (gaussianReach(deviation) == 0 || width == 0 || height == 0) return;
  const std::vector<float> kernel = halfKernel(deviation);

  Plane across(width, height);
  for (std::size_t y = 0; y < height; ++y) {
    const float* from = plane.row(y);
    float* to = across.row(y);
    add(to, from, width, kernel[0]);
    for (std::size_t i = 1; i < std::min(kernel.size(), width); ++i) {
      add(to, from + i, width - i, kernel[i]);
      add(to + i, from, width - i, kernel[i]);
    }
  }

  Plane down(width, height);
  for (std::size_t y = 0; y < height; ++y) {
    add(down.row(y), across.row(y), width, kernel[0]);
    for (std::size_t i = 1; i < kernel.size(); ++i) {
      if (y >= i) add(down.row(y), across.row(y - i), width, kernel[i]);
      if (y + i < height) add(down.row(y), across.row(y + i), width, kernel[i]);
    }
  }
  plane = std::move(down);
}

}  // namespace frelta
