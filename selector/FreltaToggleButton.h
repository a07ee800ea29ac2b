#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "uikit/UIButton.h"

namespace frelta {

/// A pill that shows an enabled state as "Enable" or "Disable". A tap does not change its state:
/// whoever owns the state sets it. Without a title until the state is first set.
class FreltaToggleButton : public UIButton {
 public:
  /// In the superview's coordinates, points. The corners are rounded by half its height.
  explicit FreltaToggleButton(const CGRect& frame);

  /// The background in state 0 of all buttons, from their next change to that state on. Nothing
  /// brings back the default, which the next button made finds.
  static void setDisabledColor(std::optional<UIColor> color);

  /// Takes that background now if the state is 0.
  void updateDisabledColor();

  /// A FreltaEnabledState; any other number is kept too.
  std::int32_t enabledState() const { return enabledState_; }
  /// The state changes at once, the look over 0.25 seconds when animated. A number that is no
  /// FreltaEnabledState leaves the look as it is.
  void setEnabledState(std::int32_t state, bool animated = true);

  /// What the button enables, for those who hear "Enable" without seeing beside what.
  void setStyleName(std::string name);
  UIAccessibility accessibility() const override;

 private:
  void setup();
  void showState();

  std::int32_t enabledState_ = 0;
  std::string styleName_;
};

}  // namespace frelta
