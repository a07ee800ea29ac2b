#pragma once

#include <memory>
#include <optional>
#include <string>

#include "selector/FreltaStyleCellHeaderCell.h"
#include "selector/HeaderGeometry.h"
#include "styles/FreltaStyleItem.h"
#include "uikit/UITableViewCell.h"

namespace frelta {

class FreltaStyleSubCell;

/// One group of the style selector: a header, and below it, when the selector groups and the group
/// is expanded, a row for each of its styles. Sizes are points.
class FreltaStyleCell : public UITableViewCell {
 public:
  using UITableViewCell::UITableViewCell;

  /// The group shown; null for none.
  const std::shared_ptr<FreltaSortedItem>& sortedStyleItem() const { return sortedStyleItem_; }
  /// Shows the group as it is, expanded or collapsed, without animation. A group whose list of
  /// items is empty is not supported: std::out_of_range.
  void setSortedStyleItem(std::shared_ptr<FreltaSortedItem> group);

  /// Made at the first setSortedStyleItem(), then kept; null before. Owned by the cell.
  FreltaStyleCellHeaderCell* headerView() const { return headerView_; }
  /// What holds the item rows: made at the first expansion, gone after reuse; null without. Owned
  /// by the cell.
  UIView* subCellsView() const { return subCellsView_; }
  /// While unset no item rows are made.
  bool isGrouped() const { return isGrouped_; }
  void setIsGrouped(bool grouped) { isGrouped_ = grouped; }

  /// Collapses or expands the group.
  void setSubCellsHidden(bool hidden, bool animated = true);
  /// Shows the states of all item rows, animated.
  void updateSubCells();
  /// Shows the state of the group, animated.
  void updateHeaderCell();
  /// Shows the placeholder where icons are awaited that have nothing to stand in for them.
  void setPlaceholder(const std::shared_ptr<const UIImage>& placeholder);

  void prepareForReuse() override;
  void layoutSubviews() override;
  UIAccessibility accessibility() const override;

  /// Without effect, on the main queue's next turn.
  void handleLongPress(UIGestureRecognizer& recognizer);
  /// Nothing, for whatever name.
  std::optional<std::string> validateSaveName(const std::optional<std::string>& name) const;
  // Without function yet.
  void deleteStyle() {}
  void renameStyle() {}
  void duplicateStyle() {}
  void duplicateStyleAsKeyFrames() {}

 private:
  void fillHeader();
  void loadHeaderIcon();
  void addHeaderView();
  void addSubCells();
  void fillSubCell(FreltaStyleSubCell& row, const std::shared_ptr<FreltaStyleItem>& item) const;
  void roundLastSubCell();
  void selectInTable() const;
  void showHandleLater(float seconds);
  void shapeHeaderCard(bool hidden);
  void animateHeader(bool hidden, float seconds);
  void animateSubCells(bool hidden, float seconds);
  void applyBackgroundColor();
  void fitWidth();

  std::shared_ptr<FreltaSortedItem> sortedStyleItem_;
  FreltaStyleCellHeaderCell* headerView_ = nullptr;
  UIView* subCellsView_ = nullptr;
  bool isGrouped_ = false;
  bool subCellsHidden_ = true;
  /// The cell's width when labels and masks were last made for it.
  double fittedWidth_ = 0;
};

}  // namespace frelta
