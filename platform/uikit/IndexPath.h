#pragma once

#include <compare>

namespace frelta {

/// A row of a table.
struct IndexPath {
  int section = 0;
  int row = 0;
  auto operator<=>(const IndexPath&) const = default;
};

}  // namespace frelta
