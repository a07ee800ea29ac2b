#pragma once

#include <string>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The value as a pretty-printed JSON document. Throws std::invalid_argument, as JSONSerialization
/// says.
std::string writeJSON(const PropertyListValue& value);

}  // namespace frelta
