#pragma once

#include <memory>
#include <utility>

#include "selector/FreltaStyleContentsCell.h"
#include "styles/FreltaSortedItem.h"

namespace frelta {

/// The row of a whole group. Its button switches every style of the group at once, by way of the
/// current selector.
class FreltaStyleCellHeaderCell : public FreltaStyleContentsCell {
 public:
  using FreltaStyleContentsCell::FreltaStyleContentsCell;
  using FreltaStyleContentsCell::updateButtonState;

  /// The group; null for none. Setting it shows nothing.
  const std::shared_ptr<FreltaSortedItem>& StyleGroup() const { return styleGroup_; }
  void setStyleGroup(std::shared_ptr<FreltaSortedItem> group) { styleGroup_ = std::move(group); }

  /// Shows the group's state, animated.
  void updateButtonState();
  /// Switches a group that is off on, and any other, a partly enabled one too, off. Ignored while
  /// the selector animates.
  void buttonTapped(UIControl& sender) override;
  /// Writes the group's path to the log.
  void editButtonTapped(UIControl& sender) override;

 private:
  std::shared_ptr<FreltaSortedItem> styleGroup_;
};

}  // namespace frelta
