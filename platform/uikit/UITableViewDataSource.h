#pragma once

#include <memory>
#include <string>

#include "uikit/IndexPath.h"
#include "uikit/UITableViewCell.h"

namespace frelta {

class UITableView;

/// Tells a table what it shows.
class UITableViewDataSource {
 public:
  virtual ~UITableViewDataSource() = default;
  virtual int numberOfSectionsInTableView(UITableView&) { return 1; }
  virtual int numberOfRowsInSection(UITableView&, int section) = 0;
  /// A cell for the row, new or dequeued from the table, filled. Never null. Animations in here
  /// have no length: a row comes on screen as it is. Only in the cell of a row that a reload finds
  /// with the same item as before they have theirs, and what moves there moves on.
  virtual std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView&, IndexPath) = 0;
  /// What the row shows, to know it by after a reload; null for nothing that can be known again.
  virtual std::shared_ptr<const void> itemForRowAtIndexPath(UITableView&, IndexPath) {
    return nullptr;
  }
  /// Whether a swipe on the row brings out the delegate's actions.
  virtual bool canEditRowAtIndexPath(UITableView&, IndexPath) { return false; }
  /// Whether the row has a reorder control while the table is being edited.
  virtual bool canMoveRowAtIndexPath(UITableView&, IndexPath) { return false; }
  /// Empty for none.
  virtual std::string titleForHeaderInSection(UITableView&, int) { return {}; }
  virtual std::string titleForFooterInSection(UITableView&, int) { return {}; }
};

}  // namespace frelta
