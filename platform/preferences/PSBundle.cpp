#include "preferences/PSBundle.h"

namespace frelta {

std::optional<PSBundleInfo> bundleInfoWithValue(const PropertyListValue& value) {
  const Dictionary* dictionary = value.dictionary();
  if (!dictionary) return std::nullopt;
  const auto stringOf = [&](std::string_view key) {
    const PropertyListValue* entry = valueForKey(*dictionary, key);
    return entry ? entry->string() : nullptr;
  };
  const std::string* principalClass = stringOf("NSPrincipalClass");
  const std::string* executable = stringOf("CFBundleExecutable");
  if (!principalClass || principalClass->empty()) return std::nullopt;
  if (!executable || !PSBundle::isResourceName(*executable)) return std::nullopt;
  return PSBundleInfo{*principalClass, *executable};
}

bool PSBundle::isResourceName(std::string_view fileName) {
  return !fileName.empty() && fileName != "." && fileName != ".." &&
         fileName.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

}  // namespace frelta
