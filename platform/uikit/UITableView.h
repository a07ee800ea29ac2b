#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "uikit/IndexPath.h"
#include "uikit/UIScrollView.h"
#include "uikit/UITableViewCell.h"
#include "uikit/UITableViewLayout.h"
#include "uikit/UITableViewReusePool.h"
#include "uikit/UITableViewRowAction.h"

namespace frelta {

class UITableView;

/// Tells a table what it shows.
class UITableViewDataSource {
 public:
  virtual ~UITableViewDataSource() = default;
  virtual int numberOfSectionsInTableView(UITableView&) { return 1; }
  virtual int numberOfRowsInSection(UITableView&, int section) = 0;
  /// A cell for the row, new or dequeued from the table, filled. Never null.
  virtual std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView&, IndexPath) = 0;
  /// Whether a swipe on the row brings out the delegate's actions.
  virtual bool canEditRowAtIndexPath(UITableView&, IndexPath) { return false; }
  /// Empty for none.
  virtual std::string titleForHeaderInSection(UITableView&, int) { return {}; }
  virtual std::string titleForFooterInSection(UITableView&, int) { return {}; }
};

/// Decides and learns what happens in a table.
class UITableViewDelegate {
 public:
  virtual ~UITableViewDelegate() = default;
  /// Height of the row in points; asked once for each reload.
  virtual double heightForRowAtIndexPath(UITableView&, IndexPath);
  /// The row to select in place of that one, or nothing to refuse.
  virtual std::optional<IndexPath> willSelectRowAtIndexPath(UITableView&, IndexPath path) {
    return path;
  }
  virtual void didSelectRowAtIndexPath(UITableView&, IndexPath) {}
  /// The row's actions, the one at the trailing edge first; asked when they are to be shown.
  virtual UITableViewRowActions editActionsForRowAtIndexPath(UITableView&, IndexPath) { return {}; }
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

  /// Asks everything anew at the next layout. Scrolling stays where it is, within the new content.
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
  /// In content coordinates.
  CGRect rectForRowAtIndexPath(IndexPath path);
  void scrollToRowAtIndexPath(IndexPath path);

  std::optional<IndexPath> indexPathForSelectedRow() const { return selectedRow_; }
  /// Neither asks nor tells the delegate.
  void selectRowAtIndexPath(std::optional<IndexPath> path);
  void deselectRowAtIndexPath(IndexPath path);
  /// What a tap on a row does: asks the delegate, selects, tells the delegate.
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
  void scrollViewDidScroll() override {
    closeSwipedRow();
    setNeedsLayout();
  }

 private:
  struct SectionViews {
    UILabel* header = nullptr;
    UILabel* footer = nullptr;
  };

  void updateLayout();
  /// How far beyond the edges rows have cells, points.
  double rowMargin() const;
  void recycleRowsOutside(double minY, double maxY);
  void addRowsWithin(double minY, double maxY);
  void placeTitles(double minY, double maxY);
  UILabel* placeTitle(UILabel* label, const std::string& text, const CGRect& frame, bool header);
  void sortSubviews();

  UITableViewLayout layout_;
  UITableViewReusePool pool_;
  UITableViewDataSource* dataSource_ = nullptr;
  UITableViewDelegate* delegate_ = nullptr;
  bool needsReload_ = true;
  double layoutWidth_ = -1;
  // Subviews of the table, by what they show.
  std::map<IndexPath, UITableViewCell*> cells_;
  std::map<int, SectionViews> titles_;
  std::optional<IndexPath> selectedRow_;
  std::optional<IndexPath> swipedRow_;
};

}  // namespace frelta
