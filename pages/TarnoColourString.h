#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "graphics/UIColor.h"

namespace frelta {

/// The colour of a string of the form "#RRGGBBAA" or, for an opaque one, "#RRGGBB": hexadecimal
/// digits of either case. Nothing for any other string.
std::optional<UIColor::Components> colourWithString(std::string_view text);

/// The form "#RRGGBBAA" in upper case. Components count as if within 0 and 1.
std::string stringWithColour(const UIColor::Components& colour);

}  // namespace frelta
