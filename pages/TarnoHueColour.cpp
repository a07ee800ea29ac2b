#include "pages/TarnoHueColour.h"

#include <algorithm>
#include <cmath>

namespace frelta {

UIColor::Components componentsWithHueColour(const TarnoHueColour& colour) {
  const auto channel = [&](double turn) {
    const double position = std::fmod(colour.hue * 6 + turn, 6);
    const double distance = std::clamp(std::min(position, 4 - position), 0.0, 1.0);
    return colour.brightness * (1 - colour.saturation * distance);
  };
  return {channel(5), channel(3), channel(1), colour.alpha};
}

TarnoHueColour hueColourWithComponents(const UIColor::Components& components,
                                       const TarnoHueColour& previous) {
  const auto [red, green, blue, alpha] = components;
  const double most = std::max({red, green, blue});
  const double spread = most - std::min({red, green, blue});
  TarnoHueColour colour{previous.hue, previous.saturation, most, alpha};
  if (most > 0) colour.saturation = spread / most;
  if (spread > 0) {
    double sixths = 0;
    if (most == red) {
      sixths = (green - blue) / spread;
    } else if (most == green) {
      sixths = 2 + (blue - red) / spread;
    } else {
      sixths = 4 + (red - green) / spread;
    }
    colour.hue = (sixths < 0 ? sixths + 6 : sixths) / 6;
  }
  return colour;
}

}  // namespace frelta
