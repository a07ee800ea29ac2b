#include "uikit/UITableView.h"

#include <algorithm>

#include "foundation/Log.h"
#include "foundation/Platform.h"
#include "uikit/UIAccessibilityState.h"

namespace frelta {

namespace {
// A page of settings is told whole; a list of thousands is told around what is seen.
constexpr int kMostRowsReadAloud = 200;
constexpr double kUpdateSeconds = 0.3;  // the platform's

UIColor tableColor(UITableViewStyle style) {
  return style == UITableViewStyle::Plain ? UIColor::systemBackgroundColor()
                                          : UIColor::systemGroupedBackgroundColor();
}

/// White at 6 %, in whole parts of what a screen shows: layers of it look as they are worked out.
constexpr double kStepInTheDark = 15 / 255.0;

/// Of a cell that has no colour of its own. In the dark a plain row is a step above its table, and
/// what takes its colour a step above the row.
UIColor rowColor(UITableViewStyle style) {
  return style == UITableViewStyle::Plain
             ? UIColor::colorWithLightAndDark({1, 1, 1, 1}, {1, 1, 1, kStepInTheDark})
             : UIColor::secondarySystemGroupedBackgroundColor();
}

std::unique_ptr<UITableViewCell> cellOf(std::unique_ptr<UIView> view) {
  return std::unique_ptr<UITableViewCell>(static_cast<UITableViewCell*>(view.release()));
}

/// Notes which row's cell is being made, for as long as it lives.
class MakingCell {
 public:
  MakingCell(std::optional<IndexPath>& row, IndexPath path)
      : row_(row), before_(std::exchange(row, path)) {}
  ~MakingCell() { row_ = before_; }
  MakingCell(const MakingCell&) = delete;
  MakingCell& operator=(const MakingCell&) = delete;

 private:
  std::optional<IndexPath>& row_;
  std::optional<IndexPath> before_;
};

}  // namespace

double UITableViewDelegate::heightForRowAtIndexPath(UITableView&, IndexPath) {
  return UITableView::kDefaultRowHeight;
}

UITableView::UITableView(const CGRect& frame, UITableViewStyle style)
    : UIScrollView(frame), layout_(style) {
  setBackgroundColor(tableColor(style));
}

void UITableView::setDataSource(UITableViewDataSource* dataSource) {
  dataSource_ = dataSource;
  reloadData();
}

void UITableView::setDelegate(UITableViewDelegate* delegate) {
  delegate_ = delegate;
  reloadData();
}

void UITableView::reloadData() {
  closeSwipedRow();
  needsReload_ = true;
  setNeedsLayout();
}

int UITableView::numberOfSections() {
  updateLayout();
  return static_cast<int>(layout_.sections().size());
}

int UITableView::numberOfRowsInSection(int section) {
  if (section < 0 || section >= numberOfSections()) return 0;
  return layout_.sections()[static_cast<std::size_t>(section)].rows();
}

CGRect UITableView::rectForRowAtIndexPath(IndexPath path) {
  updateLayout();
  return layout_.rectForRow(path);
}

void UITableView::scrollToRowAtIndexPath(IndexPath path, UITableViewScrollPosition position,
                                         bool animated) {
  updateLayout();
  if (!layout_.contains(path)) return;
  const CGRect row = layout_.rectForRow(path);
  const double height = frame().size.height;
  switch (position) {
    case UITableViewScrollPosition::None:
      scrollRectToVisible(row, animated);
      break;
    case UITableViewScrollPosition::Top:
      setContentOffset({0, row.minY()}, animated);
      break;
    case UITableViewScrollPosition::Middle:
      setContentOffset({0, row.midY() - height / 2}, animated);
      break;
    case UITableViewScrollPosition::Bottom:
      setContentOffset({0, row.maxY() - height}, animated);
      break;
  }
}

std::unique_ptr<UITableViewCell> UITableView::dequeueReusableCellWithIdentifier(
    const std::string& identifier) {
  std::unique_ptr<UITableViewCell> cell = pool_.take(identifier, rowBeingMade_);
  if (cell) cell->prepareForReuse();
  return cell;
}

UITableViewCell* UITableView::cellForRowAtIndexPath(IndexPath path) const {
  const auto found = cells_.find(path);
  return found == cells_.end() ? nullptr : found->second;
}

std::vector<IndexPath> UITableView::indexPathsForVisibleRows() const {
  std::vector<IndexPath> paths;
  for (const auto& [path, cell] : cells_) paths.push_back(path);
  return paths;
}

std::vector<UITableViewCell*> UITableView::visibleCells() const {
  std::vector<UITableViewCell*> cells;
  for (const auto& [path, cell] : cells_) cells.push_back(cell);
  return cells;
}

std::optional<IndexPath> UITableView::indexPathForCell(const UITableViewCell& cell) const {
  for (const auto& [path, known] : cells_) {
    if (known == &cell) return path;
  }
  return std::nullopt;
}

void UITableView::selectRowAtIndexPath(std::optional<IndexPath> path, bool animated,
                                       UITableViewScrollPosition position) {
  if (selectedRow_) {
    if (UITableViewCell* cell = cellForRowAtIndexPath(*selectedRow_)) cell->setSelected(false);
  }
  selectedRow_ = path;
  if (selectedRow_) {
    if (UITableViewCell* cell = cellForRowAtIndexPath(*selectedRow_)) cell->setSelected(true);
    if (position != UITableViewScrollPosition::None) {
      scrollToRowAtIndexPath(*selectedRow_, position, animated);
    }
  }
}

void UITableView::deselectRowAtIndexPath(IndexPath path, bool) {
  if (selectedRow_ == path) selectRowAtIndexPath(std::nullopt);
}

void UITableView::userDidSelectRowAtIndexPath(IndexPath path) {
  if (swipedRow_) {
    closeSwipedRow();
    return;
  }
  if (editing_ && !allowsSelectionDuringEditing_) return;
  if (delegate_) {
    const std::optional<IndexPath> allowed = delegate_->willSelectRowAtIndexPath(*this, path);
    if (!allowed) return;
    path = *allowed;
  }
  const std::optional<IndexPath> before = selectedRow_;
  selectRowAtIndexPath(path);
  if (!delegate_) return;
  if (before && before != path) delegate_->didDeselectRowAtIndexPath(*this, *before);
  delegate_->didSelectRowAtIndexPath(*this, path);
}

void UITableView::scrollViewDidScroll() {
  closeSwipedRow();
  setNeedsLayout();
  if (delegate_) delegate_->scrollViewDidScroll(*this);
}

void UITableView::setEditing(bool editing, bool animated) {
  if (editing == editing_) return;
  editing_ = editing;
  for (const auto& [path, cell] : cells_) describe(*cell, path);
  if (animated) animateWithDuration(kUpdateSeconds, [this] { layoutIfNeeded(); });
}

void UITableView::setSeparatorColor(const UIColor& color) {
  separatorColor_ = color;
  for (const auto& [path, cell] : cells_) cell->setSeparatorColor(color);
}

void UITableView::beginUpdates() {
  // What is shown before the updates must be what the data source said before them.
  if (updateDepth_++ == 0 && !rowBeingMade_) layoutIfNeeded();
}

void UITableView::endUpdates() {
  if (updateDepth_ == 0 || --updateDepth_ > 0) return;
  const UITableViewUpdates updates = std::exchange(updates_, {});
  if (!rowBeingMade_) {
    if (!needsReload_) applyUpdates(updates);
  } else if (!updates.areEmpty()) {
    Platform::current().mainQueue->async([this, alive = lifetime()] {
      if (!alive.expired()) reloadData();
    });
  }
}

void UITableView::moveRowAtIndexPath(IndexPath from, IndexPath to) {
  beginUpdates();
  updates_.moveRow(from, to);
  endUpdates();
}

void UITableView::reloadSections(const std::vector<int>& sections) {
  beginUpdates();
  for (const int section : sections) updates_.reloadSection(section);
  endUpdates();
}

std::vector<int> UITableView::rowsInSections() const {
  std::vector<int> rows;
  for (const UITableViewLayout::Section& section : layout_.sections()) {
    rows.push_back(section.rows());
  }
  return rows;
}

void UITableView::applyUpdates(const UITableViewUpdates& updates) {
  const std::vector<int> before = rowsInSections();
  closeSwipedRow();
  askForLayout();
  if (!updates.lead(before, rowsInSections())) {
    freltaLog("A table's rows are not what its updates lead to: it is reloaded");
    reloadData();
    return;
  }
  followUpdates(updates);
  animateWithDuration(kUpdateSeconds, [this] {
    setContentSize(layout_.contentSize());
    layoutSubviews();
  });
}

void UITableView::followUpdates(const UITableViewUpdates& updates) {
  if (selectedRow_) selectedRow_ = updates.pathAfter(*selectedRow_);
  std::vector<UITableViewCell*> leaving;
  std::map<IndexPath, UITableViewCell*> staying;
  for (const auto& [path, cell] : std::exchange(cells_, {})) {
    if (const std::optional<IndexPath> after = updates.pathAfter(path)) {
      staying[*after] = cell;
    } else {
      leaving.push_back(cell);
    }
  }
  cells_ = std::move(staying);
  recycle(leaving);
  for (const auto& [path, cell] : cells_) describe(*cell, path);
}

UITableViewRowActions UITableView::rowActionsForRowAtIndexPath(IndexPath path) {
  updateLayout();
  const bool editable = dataSource_ && delegate_ && layout_.contains(path) &&
                        dataSource_->canEditRowAtIndexPath(*this, path);
  return editable ? delegate_->editActionsForRowAtIndexPath(*this, path) : UITableViewRowActions();
}

void UITableView::userDidSwipeRowAtIndexPath(IndexPath path) {
  if (swipedRow_ == path) return;
  closeSwipedRow();
  UITableViewCell* cell = cellForRowAtIndexPath(path);
  if (!cell) return;
  cell->setRowActions(rowActionsForRowAtIndexPath(path));
  if (!cell->rowActions().empty()) swipedRow_ = path;
}

void UITableView::closeSwipedRow() {
  if (!swipedRow_) return;
  if (UITableViewCell* cell = cellForRowAtIndexPath(*swipedRow_)) cell->setRowActions({});
  swipedRow_.reset();
}

void UITableView::userDidPressRowAction(std::shared_ptr<UITableViewRowAction> action,
                                        IndexPath path) {
  closeSwipedRow();
  if (action) action->perform(path);
}

void UITableView::updateLayout() {
  if (!needsReload_ && frame().size.width == layoutWidth_) return;
  const bool isReload = needsReload_;
  // Every row is asked for anew; the cells wait in the pool for it.
  if (isReload) recycleForReload();
  needsReload_ = false;
  askForLayout();
  if (isReload) {
    pool_.keepRows([this](IndexPath path, const UITableViewCell& cell) {
      const auto item = cell.item().lock();
      return item && layout_.contains(path) &&
             dataSource_->itemForRowAtIndexPath(*this, path) == item;
    });
  }
  if (selectedRow_ && !layout_.contains(*selectedRow_)) selectedRow_.reset();
  setContentSize(layout_.contentSize());
}

void UITableView::askForLayout() {
  layoutWidth_ = frame().size.width;
  layout_.clear(layoutWidth_);
  const int sections = dataSource_ ? dataSource_->numberOfSectionsInTableView(*this) : 0;
  for (int section = 0; section < sections; ++section) {
    layout_.beginSection(
        dataSource_->titleForHeaderInSection(*this, section),
        delegate_ ? delegate_->heightForHeaderInSection(*this, section) : std::nullopt);
    const int rows = dataSource_->numberOfRowsInSection(*this, section);
    for (int row = 0; row < rows; ++row) {
      layout_.addRow(delegate_ ? delegate_->heightForRowAtIndexPath(*this, {section, row})
                               : kDefaultRowHeight);
    }
    layout_.endSection(dataSource_->titleForFooterInSection(*this, section));
  }
  layout_.finish();
}

double UITableView::rowMargin() const {
  if (UIAccessibilityIsVoiceOverRunning() && layout_.rows() <= kMostRowsReadAloud) {
    return contentSize().height;
  }
  // Half a screen beyond each edge, so that the keyboard finds a next row to go to.
  return frame().size.height / 2;
}

void UITableView::layoutSubviews() {
  updateLayout();
  const double margin = rowMargin();
  recycleRowsOutside(bounds().minY() - margin, bounds().maxY() + margin);
  // A row that leaves ends its editing, and that may have asked for a reload.
  updateLayout();
  const double minY = bounds().minY() - margin;
  const double maxY = bounds().maxY() + margin;
  addRowsWithin(minY, maxY);
  pool_.keepRows([](IndexPath, const UITableViewCell&) { return false; });
  titles_.place(layout_, minY, maxY);
  sortSubviews();
}

void UITableView::recycleRowsOutside(double minY, double maxY) {
  std::vector<UITableViewCell*> leaving;
  std::erase_if(cells_, [&](const auto& entry) {
    const CGRect rect = layout_.rectForRow(entry.first);
    const bool stays = rect.size.height > 0 && rect.maxY() > minY && rect.minY() < maxY;
    if (!stays) leaving.push_back(entry.second);
    return !stays;
  });
  recycle(leaving);
}

void UITableView::recycle(const std::vector<UITableViewCell*>& leaving) {
  // From the bottom up: the pool gives the last one first, so a reload finds each row its own cell
  // again, and the keyboard stays in its row.
  for (auto cell = leaving.rbegin(); cell != leaving.rend(); ++cell) {
    (*cell)->endEditing(true);
    pool_.put(cellOf((*cell)->removeFromSuperview()));
  }
}

void UITableView::recycleForReload() {
  const auto leaving = std::exchange(cells_, {});
  for (auto entry = leaving.rbegin(); entry != leaving.rend(); ++entry) {
    entry->second->endEditing(true);
    pool_.putForRow(cellOf(lendSubview(*entry->second)), entry->first);
  }
}

void UITableView::addRowsWithin(double minY, double maxY) {
  const int sections = static_cast<int>(layout_.sections().size());
  for (int section = 0; section < sections; ++section) {
    const auto [first, last] = layout_.rowsBetween(section, minY, maxY);
    for (int row = first; row < last; ++row) {
      const IndexPath path{section, row};
      const CGRect rect = layout_.rectForRow(path);
      // What cannot be seen must not take the keyboard either.
      if (rect.size.height <= 0) continue;
      UITableViewCell* cell = cellForRowAtIndexPath(path);
      if (!cell) cell = makeCell(path, rect);
      cell->setFrame(rect);
      cell->setSelected(selectedRow_ == path);
    }
  }
}

UITableViewCell* UITableView::makeCell(IndexPath path, const CGRect& frame) {
  UITableViewCell* cell = nullptr;
  const MakingCell making(rowBeingMade_, path);
  const auto make = [&] {
    cell = addSubview(dataSource_->cellForRowAtIndexPath(*this, path));
    cells_[path] = cell;
    cell->setItem(dataSource_->itemForRowAtIndexPath(*this, path));
    if (!cell->backgroundColor()) cell->setBackgroundColor(rowColor(layout_.style()));
    cell->setFrame(frame);
    describe(*cell, path);
  };
  if (pool_.waitsForRow(path)) {
    make();
  } else {
    performWithoutAnimation(make);
  }
  return cell;
}

void UITableView::describe(UITableViewCell& cell, IndexPath path) {
  cell.setEditable(dataSource_->canEditRowAtIndexPath(*this, path));
  cell.setSeparatorColor(separatorColor_);
  std::optional<UITableViewCellEditing> editing;
  if (editing_) {
    editing.emplace();
    editing->showsReorderControl = dataSource_->canMoveRowAtIndexPath(*this, path);
    if (delegate_) {
      editing->style = delegate_->editingStyleForRowAtIndexPath(*this, path);
      editing->indents = delegate_->shouldIndentWhileEditingRowAtIndexPath(*this, path);
    }
  }
  cell.setEditing(editing);
  if (layout_.style() == UITableViewStyle::InsetGrouped) {
    using Position = UITableViewCellGroupPosition;
    const int rows = layout_.sections()[static_cast<std::size_t>(path.section)].rows();
    cell.setGroupPosition(rows == 1              ? Position::Single
                          : path.row == 0        ? Position::First
                          : path.row == rows - 1 ? Position::Last
                                                 : Position::Middle);
  }
}

void UITableView::sortSubviews() {
  // Assistive technology and the Tab key go by the order of the subviews: keep it the visual one.
  std::vector<UIView*> order;
  order.reserve(subviews().size());
  for (const auto& view : subviews()) order.push_back(view.get());
  const auto above = [](const UIView* a, const UIView* b) {
    return a->frame().minY() < b->frame().minY();
  };
  if (std::is_sorted(order.begin(), order.end(), above)) return;
  std::stable_sort(order.begin(), order.end(), above);
  reorderSubviews(order);
}

}  // namespace frelta
