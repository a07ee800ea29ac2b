#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "uikit/IndexPath.h"
#include "uikit/UITableViewCell.h"

namespace frelta {

/// Cells that no row shows, by reuse identifier.
class UITableViewReusePool {
 public:
  void put(std::unique_ptr<UITableViewCell> cell);
  /// The cell goes back to the row if the row asks for one; what moves in it moves on meanwhile.
  void putForRow(std::unique_ptr<UITableViewCell> cell, IndexPath row);
  /// The row's own cell if there is one, else the cell put last for the identifier, or null.
  std::unique_ptr<UITableViewCell> take(const std::string& identifier,
                                        std::optional<IndexPath> row = std::nullopt);

  /// Whether a cell of that identifier or another waits for the row.
  bool waitsForRow(IndexPath row) const { return rows_.contains(row); }
  /// The other rows' cells wait for any row from now on, and nothing moves in them.
  void keepRows(const std::function<bool(IndexPath, const UITableViewCell&)>& stays);

 private:
  std::map<std::string, std::vector<std::unique_ptr<UITableViewCell>>> cells_;
  std::map<IndexPath, UITableViewCell*> rows_;  // of cells_
};

}  // namespace frelta
