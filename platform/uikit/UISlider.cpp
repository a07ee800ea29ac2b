#include "uikit/UISlider.h"

#include <algorithm>

namespace frelta {

void UISlider::setValue(double value) {
  dragToValue(value);
  committedValue_ = value_;
}

void UISlider::dragToValue(double value) {
  value = std::clamp(value, minimumValue_, maximumValue_);
  if (value == value_) return;
  value_ = value;
  didChange();
}

void UISlider::setRange(double minimum, double maximum) {
  maximum = std::max(minimum, maximum);
  if (minimum == minimumValue_ && maximum == maximumValue_) return;
  minimumValue_ = minimum;
  maximumValue_ = maximum;
  value_ = std::clamp(value_, minimum, maximum);
  committedValue_ = value_;
  didChange();
}

void UISlider::commitValue() {
  if (!isEnabled() || value_ == committedValue_) return;
  committedValue_ = value_;
  sendActionsForControlEvents(UIControlEventValueChanged);
}

}  // namespace frelta
