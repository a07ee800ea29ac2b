#pragma once

#include "foundation/JSONSerialization.h"

namespace frelta {

/// Read with Boost's event parser, written here.
class LinuxJSONSerialization : public JSONSerialization {
 public:
  std::optional<PropertyListValue> objectWithData(std::string_view bytes) const override;
  std::string prettyPrintedDataWithObject(const PropertyListValue& value) const override;
};

}  // namespace frelta
