#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Platform.h"
#include "preferences/PSBundle.h"

namespace frelta {

/// A bundle in memory.
class FakeBundle : public PSBundle {
 public:
  const PSBundleInfo& info() const override { return info_; }
  const PSClassRegistry& classes() const override { return registry; }
  std::optional<std::string> contentsOfResource(std::string_view fileName) const override {
    ++resourceReads;
    const auto found = resources.find(fileName);
    return found == resources.end() ? std::nullopt : std::optional(found->second);
  }

  /// Makes the value the page description of that name.
  void describe(const std::string& page, const PropertyListValue& value) {
    resources[page + ".plist"] =
        Platform::current().propertyLists->dataWithPropertyList(value).value();
  }

  PSClassRegistry registry;
  std::map<std::string, std::string, std::less<>> resources;
  mutable int resourceReads = 0;

 private:
  PSBundleInfo info_{"FirstPage", "bundle"};
};

}  // namespace frelta
