#pragma once

#include <vector>

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
  /// Whether a drag sends ValueChanged as it moves and not only when it ends; off at first.
  bool isContinuous() const { return continuous_; }
  void setContinuous(bool continuous) { continuous_ = continuous; }
  /// How far an arrow key moves the value.
  double keyStep() const { return keyStep_; }
  void setKeyStep(double step);
  /// The colours that the track runs through, from the minimum to the maximum; empty for the
  /// platform's own track.
  const std::vector<UIColor>& trackColors() const { return trackColors_; }
  void setTrackColors(std::vector<UIColor> colors);
  /// What a drag does, while it moves.
  void dragToValue(double value);
  /// What the end of a drag, or a key, does: sends ValueChanged when the value is another than at
  /// the event before.
  void commitValue();

  CGSize sizeThatFits(CGSize size) const override { return {size.width, 34}; }

 private:
  void changeValue(double value);

  double value_ = 0;
  double committedValue_ = 0;
  double minimumValue_ = 0;
  double maximumValue_ = 1;
  double keyStep_ = 0.1;
  bool continuous_ = false;
  std::vector<UIColor> trackColors_;
};

}  // namespace frelta
