#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "styles/FreltaSortedItem.h"
#include "uikit/IndexPath.h"

namespace frelta {

/// What the style library needs of the table that shows it. Section 0 is the enabled section, any
/// other the library section.
class FreltaStyleTable {
 public:
  struct VisibleCell {
    /// What the cell shows; null for nothing.
    std::shared_ptr<FreltaSortedItem> sortedStyleItem;
    /// Where the table has the cell; nothing when it has not.
    std::optional<IndexPath> indexPath;
  };

  virtual ~FreltaStyleTable() = default;

  /// The cells on screen, in the table's order.
  virtual std::vector<VisibleCell> visibleCells() const = 0;
  /// These two do nothing where no cell is.
  virtual void updateHeaderCell(IndexPath path) = 0;
  virtual void updateSubCells(IndexPath path) = 0;

  virtual void reloadData() = 0;
  /// Asks the section's rows anew, without animation.
  virtual void reloadSection(int section) = 0;
  /// Around moves, which then show at once.
  virtual void beginUpdates() = 0;
  virtual void endUpdates() = 0;
  virtual void moveRowAtIndexPath(IndexPath from, IndexPath to) = 0;
  /// Scrolls, animated, until the row is the topmost.
  virtual void scrollToRowAtIndexPath(IndexPath path) = 0;
};

}  // namespace frelta
