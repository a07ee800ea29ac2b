#include "uikit/UISwitch.h"

namespace frelta {

void UISwitch::setOn(bool on) {
  if (on == on_) return;
  on_ = on;
  didChange();
}

void UISwitch::toggle() {
  if (!isEnabled()) return;
  setOn(!on_);
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
