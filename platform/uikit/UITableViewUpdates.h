#pragma once

#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "uikit/IndexPath.h"

namespace frelta {

/// What a table is told between beginUpdates and endUpdates, and where it leaves each row.
class UITableViewUpdates {
 public:
  /// From a place before the updates to one after them.
  void moveRow(IndexPath from, IndexPath to) { moves_.emplace_back(from, to); }
  /// Forgets the rows of the section. Sections keep their places.
  void reloadSection(int section) { reloaded_.insert(section); }

  bool areEmpty() const { return moves_.empty() && reloaded_.empty(); }
  /// Whether the updates lead from that number of rows in each section to the other. A section
  /// that is reloaded may have any number.
  bool lead(const std::vector<int>& before, const std::vector<int>& after) const;
  /// Where the row of before is after the updates; nothing when it is to be asked for anew.
  /// Only for updates that lead somewhere.
  std::optional<IndexPath> pathAfter(IndexPath before) const;

 private:
  std::vector<std::pair<IndexPath, IndexPath>> moves_;
  std::set<int> reloaded_;
};

}  // namespace frelta
