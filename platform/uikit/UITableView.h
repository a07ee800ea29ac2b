#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "uikit/IndexPath.h"
#include "uikit/UIScrollView.h"
#include "uikit/UITableViewCell.h"
#include "uikit/UITableViewDataSource.h"
#include "uikit/UITableViewDelegate.h"
#include "uikit/UITableViewLayout.h"
#include "uikit/UITableViewReusePool.h"
#include "uikit/UITableViewTitles.h"
#include "uikit/UITableViewUpdates.h"

namespace frelta {

/// The platform's scroll positions, with its values.
enum class UITableViewScrollPosition {
  /// As little as makes the row visible; for a selection, not at all.
  None = 0,
  Top = 1,
  Middle = 2,
  Bottom = 3,
};

/// Rows in sections. Only rows on and near the screen have cells; the others' are reused.
class UITableView : public UIScrollView {
 public:
  /// Height of a row for which the delegate has no other, points.
  static constexpr double kDefaultRowHeight = 44;

  UITableView(const CGRect& frame, UITableViewStyle style);

  UITableViewStyle style() const { return layout_.style(); }
  /// Neither is owned; both outlive the table or are set to null first.
  void setDataSource(UITableViewDataSource* dataSource);
  void setDelegate(UITableViewDelegate* delegate);

  /// Asks everything anew at the next layout. Scrolling stays where it is, within the new content;
  /// so does what moves in rows that show the same item as before.
  void reloadData();
  int numberOfSections();
  int numberOfRowsInSection(int section);

  /// A cell made for that identifier that no row shows now, made ready by prepareForReuse(); null
  /// when there is none.
  std::unique_ptr<UITableViewCell> dequeueReusableCellWithIdentifier(const std::string& identifier);
  /// The cell of a row on or near the screen, else null. Owned by the table.
  UITableViewCell* cellForRowAtIndexPath(IndexPath path) const;
  /// Rows that have cells, in order.
  std::vector<IndexPath> indexPathsForVisibleRows() const;
  std::optional<IndexPath> indexPathForCell(const UITableViewCell& cell) const;
  /// The cells of rows on or near the screen, in order. Owned by the table.
  std::vector<UITableViewCell*> visibleCells() const;
  /// In content coordinates.
  CGRect rectForRowAtIndexPath(IndexPath path);
  /// Nothing for a row that there is not.
  void scrollToRowAtIndexPath(IndexPath path,
                              UITableViewScrollPosition position = UITableViewScrollPosition::None,
                              bool animated = false);

  /// Between the two, rows are moved and sections reloaded while the data source changes; at the
  /// end the rows and their heights are asked for anew, and the cells, which keep to their rows,
  /// move to their new places in the platform's 0.3 seconds. May be nested; the outermost pair
  /// counts. When the new rows are not what the updates lead to, the table is reloaded and says so
  /// in the log. Updates made while the table asks for a cell wait for the queue's next turn and
  /// are a reload; where nothing was moved or reloaded, they are nothing.
  void beginUpdates();
  void endUpdates();
  /// From a place before the updates to one after them. On its own it is an update of one move.
  void moveRowAtIndexPath(IndexPath from, IndexPath to);
  /// Asks the sections' rows anew, without animation. On its own it is an update.
  void reloadSections(const std::vector<int>& sections);

  /// Rows then have what the data source and the delegate say of editing. Off at first.
  bool isEditing() const { return editing_; }
  void setEditing(bool editing, bool animated = false);
  /// Whether rows can be tapped while the table is being edited. Off at first.
  bool allowsSelectionDuringEditing() const { return allowsSelectionDuringEditing_; }
  void setAllowsSelectionDuringEditing(bool allows) { allowsSelectionDuringEditing_ = allows; }
  /// About how high a row is, points; 0 for not known, as at first. All heights are asked for at
  /// once here, so nothing stands on it.
  double estimatedRowHeight() const { return estimatedRowHeight_; }
  void setEstimatedRowHeight(double height) { estimatedRowHeight_ = height; }
  /// Of the lines between rows; a clear colour is none.
  const UIColor& separatorColor() const { return separatorColor_; }
  void setSeparatorColor(const UIColor& color);

  std::optional<IndexPath> indexPathForSelectedRow() const { return selectedRow_; }
  /// Neither asks nor tells the delegate. Nothing selects no row. A row's looks change at once,
  /// animated or not; the scrolling is animated.
  void selectRowAtIndexPath(std::optional<IndexPath> path, bool animated = false,
                            UITableViewScrollPosition position = UITableViewScrollPosition::None);
  void deselectRowAtIndexPath(IndexPath path, bool animated = false);
  /// What a tap on a row does: asks the delegate, selects, tells the delegate of the row that lost
  /// the selection and of the one that has it.
  void userDidSelectRowAtIndexPath(IndexPath path);

  /// The actions of a row that can be edited; none for any other.
  UITableViewRowActions rowActionsForRowAtIndexPath(IndexPath path);
  /// The row that has moved aside for its actions. At most one has; a tap anywhere in the table,
  /// scrolling and a reload close it.
  std::optional<IndexPath> indexPathForSwipedRow() const { return swipedRow_; }
  /// What a swipe on a row does: brings out its actions, if it has any.
  void userDidSwipeRowAtIndexPath(IndexPath path);
  void closeSwipedRow();
  /// What a press on one of the row's actions does: closes the row, then performs the action.
  void userDidPressRowAction(std::shared_ptr<UITableViewRowAction> action, IndexPath path);

  void layoutSubviews() override;

 protected:
  void scrollViewDidScroll() override;

 private:
  void updateLayout();
  /// Asks for the sections, their rows and heights.
  void askForLayout();
  std::vector<int> rowsInSections() const;
  void applyUpdates(const UITableViewUpdates& updates);
  /// Keeps the cells of rows that stay, by their new places; the others' wait for reuse.
  void followUpdates(const UITableViewUpdates& updates);
  /// How far beyond the edges rows have cells, points.
  double rowMargin() const;
  void recycleRowsOutside(double minY, double maxY);
  void addRowsWithin(double minY, double maxY);
  /// Gives up the cells to the pool.
  void recycle(const std::vector<UITableViewCell*>& leaving);
  /// All of them, for their rows to have them back.
  void recycleForReload();
  UITableViewCell* makeCell(IndexPath path, const CGRect& frame);
  /// Tells the cell what the data source and the delegate say of its row.
  void describe(UITableViewCell& cell, IndexPath path);
  void sortSubviews();

  UITableViewLayout layout_;
  UITableViewReusePool pool_;
  UITableViewDataSource* dataSource_ = nullptr;
  UITableViewDelegate* delegate_ = nullptr;
  bool needsReload_ = true;
  double layoutWidth_ = -1;
  int updateDepth_ = 0;
  UITableViewUpdates updates_;
  std::optional<IndexPath> rowBeingMade_;
  bool editing_ = false;
  bool allowsSelectionDuringEditing_ = false;
  double estimatedRowHeight_ = 0;
  UIColor separatorColor_ = UIColor::separatorColor();
  // Subviews of the table, by what they show.
  std::map<IndexPath, UITableViewCell*> cells_;
  UITableViewTitles titles_{*this};
  std::optional<IndexPath> selectedRow_;
  std::optional<IndexPath> swipedRow_;
};

}  // namespace frelta
