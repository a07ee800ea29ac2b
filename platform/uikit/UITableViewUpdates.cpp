#include "uikit/UITableViewUpdates.h"

#include <algorithm>

namespace frelta {

bool UITableViewUpdates::lead(const std::vector<int>& before, const std::vector<int>& after) const {
  if (before.size() != after.size()) return false;
  const auto isIn = [](IndexPath path, const std::vector<int>& rows) {
    return path.section >= 0 && path.section < static_cast<int>(rows.size()) && path.row >= 0 &&
           path.row < rows[static_cast<std::size_t>(path.section)];
  };
  std::vector<int> expected = before;
  std::set<IndexPath> left;
  std::set<IndexPath> entered;
  for (const auto& [from, to] : moves_) {
    if (!isIn(from, before) || !isIn(to, after)) return false;
    // A row goes to one place, and a place is taken by one row.
    if (!left.insert(from).second || !entered.insert(to).second) return false;
    --expected[static_cast<std::size_t>(from.section)];
    ++expected[static_cast<std::size_t>(to.section)];
  }
  for (std::size_t section = 0; section < after.size(); ++section) {
    const bool isFree = reloaded_.contains(static_cast<int>(section));
    if (!isFree && expected[section] != after[section]) return false;
  }
  return std::ranges::all_of(reloaded_, [&](int section) {
    return section >= 0 && section < static_cast<int>(after.size());
  });
}

std::optional<IndexPath> UITableViewUpdates::pathAfter(IndexPath before) const {
  const auto known = [this](IndexPath path) {
    return reloaded_.contains(path.section) ? std::nullopt : std::optional(path);
  };
  for (const auto& [from, to] : moves_) {
    if (from == before) return known(to);
  }
  // The rows that stay close up over those that left and make room for those that came.
  IndexPath path = before;
  std::vector<int> entered;
  for (const auto& [from, to] : moves_) {
    if (from.section == before.section && from.row < before.row) --path.row;
    if (to.section == before.section) entered.push_back(to.row);
  }
  std::ranges::sort(entered);
  for (const int row : entered) {
    if (row <= path.row) ++path.row;
  }
  return known(path);
}

}  // namespace frelta
