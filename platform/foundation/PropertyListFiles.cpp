#include "foundation/PropertyListFiles.h"

#include <utility>

#include "foundation/Platform.h"

namespace frelta {

std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view path) {
  const Platform& platform = Platform::current();
  const std::optional<std::string> bytes =
      platform.fileManager->contentsAtPath(path, PropertyListSerialization::kMaximumBytes);
  if (!bytes) return std::nullopt;
  std::optional<PropertyListValue> value = platform.propertyLists->propertyListWithData(*bytes);
  if (!value || !value->dictionary()) return std::nullopt;
  return std::move(*value->dictionary());
}

bool writePropertyListToFile(const PropertyListValue& value, std::string_view path) {
  const Platform& platform = Platform::current();
  const std::optional<std::string> bytes = platform.propertyLists->dataWithPropertyList(value);
  return bytes && platform.fileManager->writeAtomically(path, *bytes);
}

}  // namespace frelta
