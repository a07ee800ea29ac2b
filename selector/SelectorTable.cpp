#include "selector/SelectorTable.h"

#include "selector/FreltaStyleCell.h"

namespace frelta {

namespace {

FreltaStyleCell* cellAt(const UITableView& table, IndexPath path) {
  return dynamic_cast<FreltaStyleCell*>(table.cellForRowAtIndexPath(path));
}

/// The table has cells for rows near the screen too.
bool isOnScreen(const UITableView& table, const UITableViewCell& cell) {
  const CGRect shown = table.bounds();
  return cell.frame().maxY() > shown.minY() && cell.frame().minY() < shown.maxY();
}

}  // namespace

std::vector<FreltaStyleTable::VisibleCell> SelectorTable::visibleCells() const {
  std::vector<VisibleCell> cells;
  for (const UITableViewCell* cell : table_.visibleCells()) {
    if (!isOnScreen(table_, *cell)) continue;
    const auto* styleCell = dynamic_cast<const FreltaStyleCell*>(cell);
    cells.push_back(
        {styleCell ? styleCell->sortedStyleItem() : nullptr, table_.indexPathForCell(*cell)});
  }
  return cells;
}

void SelectorTable::updateHeaderCell(IndexPath path) {
  if (auto* cell = cellAt(table_, path)) cell->updateHeaderCell();
}

void SelectorTable::updateSubCells(IndexPath path) {
  if (auto* cell = cellAt(table_, path)) cell->updateSubCells();
}

void SelectorTable::reloadData() {
  table_.reloadData();
}

void SelectorTable::reloadSection(int section) {
  table_.reloadSections({section});
}

void SelectorTable::beginUpdates() {
  table_.beginUpdates();
}

void SelectorTable::endUpdates() {
  table_.endUpdates();
}

void SelectorTable::moveRowAtIndexPath(IndexPath from, IndexPath to) {
  table_.moveRowAtIndexPath(from, to);
}

void SelectorTable::scrollToRowAtIndexPath(IndexPath path) {
  table_.scrollToRowAtIndexPath(path, UITableViewScrollPosition::Top, true);
}

}  // namespace frelta
