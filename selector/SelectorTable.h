#pragma once

#include "styles/FreltaStyleTable.h"
#include "uikit/UITableView.h"

namespace frelta {

/// A table view of FreltaStyleCells, as the style library sees it.
class SelectorTable : public FreltaStyleTable {
 public:
  /// The table is not owned and outlives this.
  explicit SelectorTable(UITableView& table) : table_(table) {}

  std::vector<VisibleCell> visibleCells() const override;
  void updateHeaderCell(IndexPath path) override;
  void updateSubCells(IndexPath path) override;
  void reloadData() override;
  void reloadSection(int section) override;
  void beginUpdates() override;
  void endUpdates() override;
  void moveRowAtIndexPath(IndexPath from, IndexPath to) override;
  void scrollToRowAtIndexPath(IndexPath path) override;

 private:
  UITableView& table_;
};

}  // namespace frelta
