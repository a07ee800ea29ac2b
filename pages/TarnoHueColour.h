#pragma once

#include "graphics/UIColor.h"

namespace frelta {

/// A colour as the picker's sliders show it. Every component lies within 0 and 1; the hue goes
/// round from red over green and blue to red again.
struct TarnoHueColour {
  double hue = 0;
  double saturation = 0;
  double brightness = 0;
  double alpha = 1;
  bool operator==(const TarnoHueColour&) const = default;
};

UIColor::Components componentsWithHueColour(const TarnoHueColour& colour);

/// The hue of a grey and the saturation of black are whatever `previous` has, for the sliders to
/// stay where they are.
TarnoHueColour hueColourWithComponents(const UIColor::Components& components,
                                       const TarnoHueColour& previous = {});

}  // namespace frelta
