#include "linux/LinuxPropertyListSerialization.h"

#include <utility>

#include "linux/BinaryPropertyListReader.h"
#include "linux/BinaryPropertyListWriter.h"
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
  // What could not be read back must not be written.
  std::optional<std::string> bytes = writeXMLPropertyList(value);
  if (bytes && isWithinXMLLimits(*bytes)) return bytes;
  bytes = writeBinaryPropertyList(value);
  return bytes && bytes->size() <= kMaximumBytes ? std::move(bytes) : std::nullopt;
}

}  // namespace frelta
