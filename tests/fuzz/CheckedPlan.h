#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <string_view>

#include "Require.h"
#include "installer/StylePlan.h"

namespace frelta {

/// Holds the plan to what whoever makes it relies on: names that stay in the style's folder, each
/// after the folder that holds it, and sums within the limits.
inline void requireSafe(const StylePlan& plan, const StyleSource& source,
                        const StyleLimits& limits) {
  require(!plan.name.empty() && plan.name.front() != '.' && plan.name.find('/') == plan.name.npos);
  std::set<std::string> made{""};
  const auto requireNew = [&](const std::string& path) {
    const std::size_t slash = path.rfind('/');
    require(made.contains(slash == path.npos ? "" : path.substr(0, slash)));
    const std::string_view name = std::string_view(path).substr(slash == path.npos ? 0 : slash + 1);
    require(!name.empty() && name != "." && name != ".." && name.size() <= 255);
    require(path.find('\0') == path.npos && path.find('\\') == path.npos);
    require(static_cast<std::size_t>(std::ranges::count(path, '/')) < limits.depth);
  };
  for (const auto& folder : plan.folders) {
    requireNew(folder);
    require(made.insert(folder).second);
  }
  std::set<std::string> files;
  std::uint64_t bytes = 0;
  for (const auto& file : plan.files) {
    requireNew(file.path);
    require(!made.contains(file.path) && files.insert(file.path).second);
    require(source.entries()[file.entry].kind == StyleEntry::Kind::File);
    bytes += source.entries()[file.entry].size;
  }
  require(bytes == plan.bytes && bytes <= limits.bytes);
  require(plan.folders.size() + plan.files.size() <= limits.entries);
}

}  // namespace frelta
