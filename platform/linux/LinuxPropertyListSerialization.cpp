#include "linux/LinuxPropertyListSerialization.h"

#include "linux/BinaryPropertyListReader.h"
#include "linux/XMLPropertyListReader.h"
#include "linux/XMLPropertyListWriter.h"

namespace frelta {

std::optional<PropertyListValue> LinuxPropertyListSerialization::propertyListWithData(
    std::string_view bytes) const {
  if (bytes.starts_with(kBinaryPropertyListSignature)) return readBinaryPropertyList(bytes);
  return readXMLPropertyList(bytes);
}

std::optional<std::string> LinuxPropertyListSerialization::dataWithPropertyList(
    const PropertyListValue& value) const {
  return writeXMLPropertyList(value);
}

}  // namespace frelta
