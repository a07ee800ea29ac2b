#include "foundation/PropertyListFiles.h"

#include <atomic>
#include <functional>
#include <utility>

#include "foundation/Platform.h"

namespace frelta {

std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view path) {
  const Platform& platform = Platform::current();
  const std::optional<std::string> bytes =
      platform.fileManager->contentsAtPath(path, PropertyListSerialization::kMaximumBytes);
  if (!bytes) return std::nullopt;
  // Every row of a page may ask for a file that none can read: it is judged once.
  static std::atomic<std::size_t> refused = 0;
  const std::size_t fingerprint = std::hash<std::string_view>{}(*bytes);
  if (fingerprint == refused) return std::nullopt;
  std::optional<PropertyListValue> value = platform.propertyLists->propertyListWithData(*bytes);
  if (!value || !value->dictionary()) {
    refused = fingerprint;
    if (platform.failures)
      platform.failures->failed({Failure::Operation::Understand, std::string(path)});
    return std::nullopt;
  }
  return std::move(*value->dictionary());
}

bool writePropertyListToFile(const PropertyListValue& value, std::string_view path) {
  const Platform& platform = Platform::current();
  const std::optional<std::string> bytes = platform.propertyLists->dataWithPropertyList(value);
  return bytes && platform.fileManager->writeAtomically(path, *bytes);
}

}  // namespace frelta
