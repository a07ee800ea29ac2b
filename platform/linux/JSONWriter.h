#pragma once

#include <string>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// Bytes of a document. Whoever shares one holds it several times over, as text of other widths.
inline constexpr std::size_t kMaximumJSONBytes = std::size_t{16} << 20;

/// The value as a pretty-printed JSON document. Throws std::invalid_argument, as JSONSerialization
/// says, and where it would be larger than kMaximumJSONBytes.
std::string writeJSON(const PropertyListValue& value);

}  // namespace frelta
