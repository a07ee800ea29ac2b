#include "uikit/UISlider.h"

#include <algorithm>
#include <utility>

namespace frelta {

void UISlider::setValue(double value) {
  changeValue(value);
  committedValue_ = value_;
}

void UISlider::setKeyStep(double step) {
  if (step == keyStep_) return;
  keyStep_ = step;
  didChange();
}

void UISlider::setTrackColors(std::vector<UIColor> colors) {
  if (colors == trackColors_) return;
  trackColors_ = std::move(colors);
  didChange();
}

void UISlider::dragToValue(double value) {
  changeValue(value);
  if (continuous_) commitValue();
}

void UISlider::changeValue(double value) {
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
