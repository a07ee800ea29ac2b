#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "uikit/UITableViewCell.h"

namespace frelta {

/// Cells that no row shows, by reuse identifier.
class UITableViewReusePool {
 public:
  void put(std::unique_ptr<UITableViewCell> cell) {
    cells_[cell->reuseIdentifier()].push_back(std::move(cell));
  }
  /// The cell put last for the identifier, or null.
  std::unique_ptr<UITableViewCell> take(const std::string& identifier) {
    const auto found = cells_.find(identifier);
    if (found == cells_.end() || found->second.empty()) return nullptr;
    std::unique_ptr<UITableViewCell> cell = std::move(found->second.back());
    found->second.pop_back();
    return cell;
  }
  void clear() { cells_.clear(); }

 private:
  std::map<std::string, std::vector<std::unique_ptr<UITableViewCell>>> cells_;
};

}  // namespace frelta
