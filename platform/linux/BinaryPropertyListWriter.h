#pragma once

#include <optional>
#include <string>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The value as a binary property list, the same bytes for the same value: each value and key once,
/// containers before what they hold, numbers and texts in their shortest form. Nothing when the
/// form cannot hold it: null, text that is not UTF-8, a date outside the years 1 to 9999, or
/// more than PropertyListSerialization's depth or number of values.
std::optional<std::string> writeBinaryPropertyList(const PropertyListValue& value);

}  // namespace frelta
