#include "foundation/PropertyListFiles.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "foundation/Platform.h"

namespace frelta {

namespace {

/// Files that hold no dictionary, with their states from before they were read.
using RefusedFiles = std::map<std::string, FileStamp, std::less<>>;
/// More than a page asks for.
constexpr std::size_t kMostRefused = 16;

}  // namespace

std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view path) {
  // Every row of a page may ask for a file that none can read: it is read and judged once.
  thread_local RefusedFiles refused;
  const Platform& platform = Platform::current();
  const auto stamp = platform.fileManager->fileStampAtPath(path);
  const auto known = refused.find(path);
  if (known != refused.end() && known->second == stamp) return std::nullopt;
  const std::optional<std::string> bytes =
      platform.fileManager->contentsAtPath(path, PropertyListSerialization::kMaximumBytes);
  if (!bytes) return std::nullopt;
  std::optional<PropertyListValue> value = platform.propertyLists->propertyListWithData(*bytes);
  if (value && value->dictionary()) return std::move(*value->dictionary());
  if (refused.size() >= kMostRefused) refused.clear();
  if (stamp) refused.insert_or_assign(std::string(path), *stamp);
  if (platform.failures)
    platform.failures->failed({Failure::Operation::Understand, std::string(path)});
  return std::nullopt;
}

bool writePropertyListToFile(const PropertyListValue& value, std::string_view path) {
  const Platform& platform = Platform::current();
  const std::optional<std::string> bytes = platform.propertyLists->dataWithPropertyList(value);
  return bytes && platform.fileManager->writeAtomically(path, *bytes);
}

}  // namespace frelta
