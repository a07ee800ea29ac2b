#pragma once

#include "app/Tour.h"

namespace frelta {

/// The tour's steps through the presets, from the root page and back to it. The switch that makes
/// presets follow light and dark is on.
void walkThroughPresets(Tour& tour);

}  // namespace frelta
