#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// JSON documents (RFC 8259) as bytes, in the property-list value type.
class JSONSerialization {
 public:
  /// Containers inside containers that the reader follows; deeper documents are refused.
  static constexpr int kMaximumDepth = 128;
  /// Values in one document.
  static constexpr std::size_t kMaximumNodes = 200'000;

  virtual ~JSONSerialization() = default;

  /// Reads one document of any top-level type (fragments allowed). Integers that fit int64 or
  /// uint64 stay integers; other numbers are doubles; of duplicate keys the last wins; null is
  /// Null. Returns nothing for malformed input, invalid UTF-8, a NUL byte, a number beyond double,
  /// an exponent beyond 32 bits, or a document over the limits.
  virtual std::optional<PropertyListValue> objectWithData(std::string_view bytes) const = 0;

  /// Writes the pretty-printed form: two blanks a level, one entry a line, keys in the dictionary's
  /// order, UTF-8. Doubles are written so that they read back as the same double, never as an
  /// integer. Throws std::invalid_argument when JSON cannot hold a value: a date, data, a number
  /// that is not finite, text that is not UTF-8, or more than the implementation writes.
  virtual std::string prettyPrintedDataWithObject(const PropertyListValue& value) const = 0;
};

}  // namespace frelta
