#include "uikit/UISwitch.h"

namespace frelta {

void UISwitch::setOn(bool on, bool animated) {
  if (on == on_) return;
  on_ = on;
  isChangeAnimated_ = animated;
  didChange();
}

void UISwitch::toggle() {
  if (!isEnabled()) return;
  setOn(!on_, true);
  sendActionsForControlEvents(UIControlEventValueChanged);
}

UIAccessibility UISwitch::accessibility() const {
  UIAccessibility accessibility = UIView::accessibility();
  accessibility.isElement = true;
  accessibility.role = UIAccessibility::Role::Switch;
  accessibility.on = on_;
  return accessibility;
}

}  // namespace frelta
