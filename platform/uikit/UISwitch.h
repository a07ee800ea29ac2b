#pragma once

#include "uikit/UIControl.h"

namespace frelta {

class UISwitch : public UIControl {
 public:
  /// The platform's fixed size, points.
  static constexpr CGSize kSize{51, 31};

  UISwitch() : UIControl({0, 0, kSize.width, kSize.height}) {}

  bool isOn() const { return on_; }
  /// Sends no event.
  void setOn(bool on);
  /// What a tap does: turns it over and sends ValueChanged. Nothing while it is not enabled.
  void toggle();

  CGSize sizeThatFits(CGSize) const override { return kSize; }
  UIAccessibility accessibility() const override;

 private:
  bool on_ = false;
};

}  // namespace frelta
