#include "uikit/UITableView.h"

#include <algorithm>

#include "uikit/UIAccessibilityState.h"
#include "uikit/UILabel.h"
#include "uikit/UITableViewMetrics.h"

namespace frelta {

namespace {
// A page of settings is told whole; a list of thousands is told around what is seen.
constexpr int kMostRowsReadAloud = 200;

UIColor tableColor(UITableViewStyle style) {
  return style == UITableViewStyle::Plain ? UIColor::systemBackgroundColor()
                                          : UIColor::systemGroupedBackgroundColor();
}

/// Of a cell that has no colour of its own.
UIColor rowColor(UITableViewStyle style) {
  return style == UITableViewStyle::Plain ? UIColor::systemBackgroundColor()
                                          : UIColor::secondarySystemGroupedBackgroundColor();
}
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

void UITableView::scrollToRowAtIndexPath(IndexPath path) {
  updateLayout();
  if (layout_.contains(path)) scrollRectToVisible(layout_.rectForRow(path));
}

std::unique_ptr<UITableViewCell> UITableView::dequeueReusableCellWithIdentifier(
    const std::string& identifier) {
  std::unique_ptr<UITableViewCell> cell = pool_.take(identifier);
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

std::optional<IndexPath> UITableView::indexPathForCell(const UITableViewCell& cell) const {
  for (const auto& [path, known] : cells_) {
    if (known == &cell) return path;
  }
  return std::nullopt;
}

void UITableView::selectRowAtIndexPath(std::optional<IndexPath> path) {
  if (selectedRow_) {
    if (UITableViewCell* cell = cellForRowAtIndexPath(*selectedRow_)) cell->setSelected(false);
  }
  selectedRow_ = path;
  if (selectedRow_) {
    if (UITableViewCell* cell = cellForRowAtIndexPath(*selectedRow_)) cell->setSelected(true);
  }
}

void UITableView::deselectRowAtIndexPath(IndexPath path) {
  if (selectedRow_ == path) selectRowAtIndexPath(std::nullopt);
}

void UITableView::userDidSelectRowAtIndexPath(IndexPath path) {
  if (swipedRow_) {
    closeSwipedRow();
    return;
  }
  if (delegate_) {
    const std::optional<IndexPath> allowed = delegate_->willSelectRowAtIndexPath(*this, path);
    if (!allowed) return;
    path = *allowed;
  }
  selectRowAtIndexPath(path);
  if (delegate_) delegate_->didSelectRowAtIndexPath(*this, path);
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
  const double width = frame().size.width;
  if (!needsReload_ && width == layoutWidth_) return;
  if (needsReload_) {
    // Every row is asked for anew; the cells wait in the pool for it.
    recycleRowsOutside(1, 0);
  }
  needsReload_ = false;
  layoutWidth_ = width;
  layout_.clear(width);
  const int sections = dataSource_ ? dataSource_->numberOfSectionsInTableView(*this) : 0;
  for (int section = 0; section < sections; ++section) {
    layout_.beginSection(dataSource_->titleForHeaderInSection(*this, section));
    const int rows = dataSource_->numberOfRowsInSection(*this, section);
    for (int row = 0; row < rows; ++row) {
      layout_.addRow(delegate_ ? delegate_->heightForRowAtIndexPath(*this, {section, row})
                               : kDefaultRowHeight);
    }
    layout_.endSection(dataSource_->titleForFooterInSection(*this, section));
  }
  layout_.finish();
  if (selectedRow_ && !layout_.contains(*selectedRow_)) selectedRow_.reset();
  setContentSize(layout_.contentSize());
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
  placeTitles(minY, maxY);
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
  // From the bottom up: the pool gives the last one first, so a reload finds each row its own cell
  // again, and the keyboard stays in its row.
  for (auto cell = leaving.rbegin(); cell != leaving.rend(); ++cell) {
    (*cell)->endEditing(true);
    std::unique_ptr<UIView> owner = (*cell)->removeFromSuperview();
    pool_.put(std::unique_ptr<UITableViewCell>(static_cast<UITableViewCell*>(owner.release())));
  }
}

void UITableView::addRowsWithin(double minY, double maxY) {
  const int sections = static_cast<int>(layout_.sections().size());
  for (int section = 0; section < sections; ++section) {
    const auto [first, last] = layout_.rowsBetween(section, minY, maxY);
    const int rows = layout_.sections()[static_cast<std::size_t>(section)].rows();
    for (int row = first; row < last; ++row) {
      const IndexPath path{section, row};
      const CGRect rect = layout_.rectForRow(path);
      // What cannot be seen must not take the keyboard either.
      if (rect.size.height <= 0) continue;
      UITableViewCell* cell = cellForRowAtIndexPath(path);
      if (!cell) {
        cell = addSubview(dataSource_->cellForRowAtIndexPath(*this, path));
        cells_[path] = cell;
        if (!cell->backgroundColor()) cell->setBackgroundColor(rowColor(layout_.style()));
      }
      cell->setFrame(rect);
      cell->setSelected(selectedRow_ == path);
      cell->setEditable(dataSource_->canEditRowAtIndexPath(*this, path));
      if (layout_.style() == UITableViewStyle::InsetGrouped) {
        using Position = UITableViewCellGroupPosition;
        cell->setGroupPosition(rows == 1         ? Position::Single
                               : row == 0        ? Position::First
                               : row == rows - 1 ? Position::Last
                                                 : Position::Middle);
      }
    }
  }
}

void UITableView::placeTitles(double minY, double maxY) {
  const int sections = static_cast<int>(layout_.sections().size());
  std::map<int, SectionViews> kept;
  for (int index = 0; index < sections; ++index) {
    const UITableViewLayout::Section& section = layout_.sections()[static_cast<std::size_t>(index)];
    const double top = section.header.empty() ? section.edges.front() : section.headerFrame.minY();
    const double bottom =
        section.footer.empty() ? section.edges.back() : section.footerFrame.maxY();
    if (bottom <= minY || top >= maxY) continue;
    SectionViews views = titles_[index];
    titles_.erase(index);
    views.header = placeTitle(views.header, section.header, section.headerFrame, true);
    views.footer = placeTitle(views.footer, section.footer, section.footerFrame, false);
    kept[index] = views;
  }
  for (const auto& [index, views] : titles_) {
    if (views.header) views.header->removeFromSuperview();
    if (views.footer) views.footer->removeFromSuperview();
  }
  titles_ = std::move(kept);
}

UILabel* UITableView::placeTitle(UILabel* label, const std::string& text, const CGRect& frame,
                                 bool header) {
  if (text.empty()) {
    if (label) label->removeFromSuperview();
    return nullptr;
  }
  if (!label) {
    auto made = std::make_unique<UILabel>();
    made->setFont(UIFont::systemFontOfSize(UITableViewMetrics::kTitlePointSize));
    made->setTextColor(UIColor::secondaryLabelColor());
    made->setNumberOfLines(0);
    if (header) made->setAccessibility({.role = UIAccessibility::Role::Heading});
    label = addSubview(std::move(made));
  }
  label->setText(text);
  label->setFrame(frame);
  return label;
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
