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
  /// have no length: a row comes on screen as it is.
  virtual std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView&, IndexPath) = 0;
  /// Whether a swipe on the row brings out the delegate's actions.
  virtual bool canEditRowAtIndexPath(UITableView&, IndexPath) { return false; }
  /// Whether the row has a reorder control while the table is being edited.
  virtual bool canMoveRowAtIndexPath(UITableView&, IndexPath) { return false; }
  /// Empty for none.
  virtual std::string titleForHeaderInSection(UITableView&, int) { return {}; }
  virtual std::string titleForFooterInSection(UITableView&, int) { return {}; }
};

}  // namespace frelta
