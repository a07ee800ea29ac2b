#include "linux/LinuxJSONSerialization.h"

#include "linux/JSONReader.h"
#include "linux/JSONWriter.h"

namespace frelta {

std::optional<PropertyListValue> LinuxJSONSerialization::objectWithData(
    std::string_view bytes) const {
  return readJSON(bytes);
}

std::string LinuxJSONSerialization::prettyPrintedDataWithObject(
    const PropertyListValue& value) const {
  return writeJSON(value);
}

}  // namespace frelta
