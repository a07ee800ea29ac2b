#pragma once

#include <optional>

#include "uikit/IndexPath.h"
#include "uikit/UITableViewCell.h"
#include "uikit/UITableViewRowAction.h"

namespace frelta {

class UIScrollView;
class UITableView;

/// Decides and learns what happens in a table.
class UITableViewDelegate {
 public:
  virtual ~UITableViewDelegate() = default;
  /// Height of the row in points; asked once for each reload or update.
  virtual double heightForRowAtIndexPath(UITableView&, IndexPath);
  /// Room above the rows of a section without a title, points; nothing for the style's own.
  virtual std::optional<double> heightForHeaderInSection(UITableView&, int) { return std::nullopt; }
  /// The row to select in place of that one, or nothing to refuse.
  virtual std::optional<IndexPath> willSelectRowAtIndexPath(UITableView&, IndexPath path) {
    return path;
  }
  virtual void didSelectRowAtIndexPath(UITableView&, IndexPath) {}
  /// Another row was tapped and takes the selection.
  virtual void didDeselectRowAtIndexPath(UITableView&, IndexPath) {}
  /// The row's actions, the one at the trailing edge first; asked when they are to be shown.
  virtual UITableViewRowActions editActionsForRowAtIndexPath(UITableView&, IndexPath) { return {}; }
  /// Asked while the table is being edited. There are no controls for deleting and inserting: only
  /// the room for them is made.
  virtual UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView&, IndexPath) {
    return UITableViewCellEditingStyle::None;
  }
  /// Whether the contents make room at the leading edge while the table is being edited.
  virtual bool shouldIndentWhileEditingRowAtIndexPath(UITableView&, IndexPath) { return true; }
  /// The content moved, by whatever cause.
  virtual void scrollViewDidScroll(UIScrollView&) {}
};

}  // namespace frelta
