#pragma once

#include <memory>

#include "graphics/UIColor.h"
#include "graphics/UIImage.h"

namespace frelta {

/// A picture of the colour at the main screen's scale: a rounded, outlined box of the size in
/// points, chequered where the colour lets it through.
std::shared_ptr<const UIImage> swatchOfColour(const UIColor::Components& colour, CGSize size);

}  // namespace frelta
