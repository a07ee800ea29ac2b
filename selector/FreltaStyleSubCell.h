#pragma once

#include <memory>

#include "selector/FreltaStyleCellHeaderCell.h"
#include "styles/FreltaStyleItem.h"
#include "uikit/UILongPressGestureRecognizer.h"

namespace frelta {

/// The row of one style of an expanded group. Its button switches that style, a long press tells
/// about it, both by way of the current selector.
class FreltaStyleSubCell : public UIView {
 public:
  /// In the superview's coordinates, points.
  explicit FreltaStyleSubCell(const CGRect& frame);

  /// Of every item row, points.
  static double cellHeight() { return 80.0; }

  /// The row view, whose group is never set. Owned by this one.
  FreltaStyleCellHeaderCell* contentView() const { return contentView_; }
  /// Owned by this view.
  UILongPressGestureRecognizer* longPress() const { return longPress_; }
  /// The style; null for none.
  const std::shared_ptr<FreltaStyleItem>& StyleItem() const { return styleItem_; }
  /// Shows the style's state without animation.
  void setStyleItem(std::shared_ptr<FreltaStyleItem> item);
  UIAccessibility accessibility() const override;

  /// Shows the style's state, animated.
  void updateButtonState();
  /// Has the selector switch the style over, and shows what became of it. Ignored while the
  /// selector animates.
  void buttonTapped(UIControl& sender);
  /// Writes the path of the row view's group to the log, which is "(null)": it never has one.
  void editButtonTapped(UIControl& sender);
  /// Tells about the style on the main queue's next turn. The recogniser's state does not matter:
  /// each of its messages asks for an alert of its own.
  void handleLongPress(UIGestureRecognizer& recognizer);

 private:
  void setup();

  FreltaStyleCellHeaderCell* contentView_ = nullptr;
  UILongPressGestureRecognizer* longPress_ = nullptr;
  std::shared_ptr<FreltaStyleItem> styleItem_;
};

}  // namespace frelta
