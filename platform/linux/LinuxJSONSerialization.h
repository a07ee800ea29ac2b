#pragma once

#include "foundation/JSONSerialization.h"

namespace frelta {

/// Reader and writer are our own: 64-bit integers stay whole, depth and size have limits, and a
/// megabyte takes milliseconds.
class LinuxJSONSerialization : public JSONSerialization {
 public:
  std::optional<PropertyListValue> objectWithData(std::string_view bytes) const override;
  std::string prettyPrintedDataWithObject(const PropertyListValue& value) const override;
};

}  // namespace frelta
