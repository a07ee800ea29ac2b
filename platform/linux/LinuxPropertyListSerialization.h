#pragma once

#include "foundation/PropertyListSerialization.h"

namespace frelta {

/// XML read with expat, binary read here, XML written here.
class LinuxPropertyListSerialization : public PropertyListSerialization {
 public:
  std::optional<PropertyListValue> propertyListWithData(std::string_view bytes) const override;
  std::optional<std::string> dataWithPropertyList(const PropertyListValue& value) const override;
};

}  // namespace frelta
