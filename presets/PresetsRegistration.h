#pragma once

#include "preferences/PSClassRegistry.h"

namespace frelta {

/// Makes the presets screens known under the names that the page descriptions use.
void registerPresets(PSClassRegistry& classes);

}  // namespace frelta
