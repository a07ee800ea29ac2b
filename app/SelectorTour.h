#pragma once

#include "app/Tour.h"

namespace frelta {

/// Opens the selector for each kind of style, switches styles there, and leaves. Starts and ends at
/// the root page. What it installs for that goes again.
void walkThroughSelectors(Tour& tour);

}  // namespace frelta
