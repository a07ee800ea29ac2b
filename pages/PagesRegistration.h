#pragma once

#include "preferences/PSClassRegistry.h"

namespace frelta {

/// Makes the pages and their actions known under the names that the page descriptions use.
void registerPages(PSClassRegistry& classes);

}  // namespace frelta
