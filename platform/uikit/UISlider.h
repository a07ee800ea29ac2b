#pragma once

#include "uikit/UIControl.h"

namespace frelta {

class UISlider : public UIControl {
 public:
  double value() const { return value_; }
  double minimumValue() const { return minimumValue_; }
  double maximumValue() const { return maximumValue_; }
  /// Kept within the range. Sends no event.
  void setValue(double value);
  /// A maximum below the minimum counts as the minimum.
  void setRange(double minimum, double maximum);
  /// What a drag does, while it moves: sets the value without an event.
  void dragToValue(double value);
  /// What the end of a drag, or a key, does: sends ValueChanged when the value is another than at
  /// the event before.
  void commitValue();

  CGSize sizeThatFits(CGSize size) const override { return {size.width, 34}; }

 private:
  double value_ = 0;
  double committedValue_ = 0;
  double minimumValue_ = 0;
  double maximumValue_ = 1;
};

}  // namespace frelta
