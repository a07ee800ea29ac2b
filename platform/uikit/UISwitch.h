#pragma once

#include "uikit/UIControl.h"

namespace frelta {

class UISwitch : public UIControl {
 public:
  /// The platform's fixed size, points.
  static constexpr CGSize kSize{51, 31};

  UISwitch() : UIControl({0, 0, kSize.width, kSize.height}) {}

  bool isOn() const { return on_; }
  /// Sends no event. The switch shows the new value at once.
  void setOn(bool on) { setOn(on, false); }
  /// Whether the switch glides to the value that it has.
  bool isChangeAnimated() const { return isChangeAnimated_; }
  /// What a tap does: turns it over, gliding, and sends ValueChanged. Nothing while it is not
  /// enabled.
  void toggle();

  CGSize sizeThatFits(CGSize) const override { return kSize; }
  UIAccessibility accessibility() const override;

 private:
  void setOn(bool on, bool animated);

  bool on_ = false;
  bool isChangeAnimated_ = false;
};

}  // namespace frelta
