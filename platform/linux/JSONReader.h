#pragma once

#include <optional>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The value of a JSON document, as JSONSerialization says.
std::optional<PropertyListValue> readJSON(std::string_view bytes);

}  // namespace frelta
