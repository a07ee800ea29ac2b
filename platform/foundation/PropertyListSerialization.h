#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// Property lists as bytes. Safe on hostile input: both forms share one depth limit and budgets of
/// nodes and bytes, and hold no state between calls.
class PropertyListSerialization {
 public:
  /// Containers inside containers that a reader follows; deeper documents are refused.
  static constexpr int kMaximumDepth = 128;
  /// Values in one document, keys not counted.
  static constexpr std::size_t kMaximumNodes = 200'000;
  /// Bytes of one document.
  static constexpr std::size_t kMaximumBytes = std::size_t{48} << 20;

  virtual ~PropertyListSerialization() = default;

  /// Reads an XML property list (UTF-8 or UTF-16) or a binary one ("bplist00").
  /// Returns nothing when the bytes are not a whole, well-formed property list within the limits.
  virtual std::optional<PropertyListValue> propertyListWithData(std::string_view bytes) const = 0;

  /// Writes the XML form, UTF-8, keys in the dictionary's order; where that cannot carry the value
  /// as it is, or not within the limits, the binary form, so that whatever can be read can be
  /// written. XML carries no control characters but tabs and line breaks, not U+FFFE and U+FFFF,
  /// and no fractions of a date's seconds. Returns nothing when neither can: null, text that is not
  /// UTF-8, a date outside the years 1 to 9999, or what no reader would take within the limits.
  virtual std::optional<std::string> dataWithPropertyList(const PropertyListValue& value) const = 0;
};

}  // namespace frelta
