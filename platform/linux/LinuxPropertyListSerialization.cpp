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
  {
    auto xml = writeXMLPropertyList(value);
    if (xml && isWithinXMLLimits(*xml)) return xml;
  }
  auto binary = writeBinaryPropertyList(value);
  return binary && binary->size() <= kMaximumBytes ? std::move(binary) : std::nullopt;
}

}  // namespace frelta
