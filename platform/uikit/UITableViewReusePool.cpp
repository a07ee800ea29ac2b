#include "uikit/UITableViewReusePool.h"

#include <algorithm>
#include <utility>

namespace frelta {

void UITableViewReusePool::put(std::unique_ptr<UITableViewCell> cell) {
  cells_[cell->reuseIdentifier()].push_back(std::move(cell));
}

void UITableViewReusePool::putForRow(std::unique_ptr<UITableViewCell> cell, IndexPath row) {
  rows_[row] = cell.get();
  put(std::move(cell));
}

std::unique_ptr<UITableViewCell> UITableViewReusePool::take(const std::string& identifier,
                                                            std::optional<IndexPath> row) {
  const auto found = cells_.find(identifier);
  if (found == cells_.end() || found->second.empty()) return nullptr;
  auto& cells = found->second;
  const auto own = row ? rows_.find(*row) : rows_.end();
  auto taken = cells.end() - 1;
  if (own != rows_.end()) {
    const auto place =
        std::ranges::find(cells, own->second, &std::unique_ptr<UITableViewCell>::get);
    if (place != cells.end()) taken = place;
  }
  std::unique_ptr<UITableViewCell> cell = std::move(*taken);
  cells.erase(taken);
  const bool isOwn = own != rows_.end() && own->second == cell.get();
  const auto waiting =
      std::erase_if(rows_, [&](const auto& entry) { return entry.second == cell.get(); });
  if (waiting > 0 && !isOwn) cell->stopAnimations();
  return cell;
}

void UITableViewReusePool::keepRows(
    const std::function<bool(IndexPath, const UITableViewCell&)>& stays) {
  std::erase_if(rows_, [&](const auto& entry) {
    if (stays(entry.first, *entry.second)) return false;
    entry.second->stopAnimations();
    return true;
  });
}

}  // namespace frelta
