#include "selector/FreltaToggleButton.h"

#include <utility>

#include "selector/GroundColors.h"
#include "selector/PillColors.h"
#include "styles/FreltaEnabledState.h"

namespace frelta {

namespace {

constexpr double kTitleSize = 16;
constexpr double kFadeSeconds = 0.25;

UIColor enableTitleColor() {
  return UIColor::colorWithRed(0.0, 0.478, 1.0, 1.0);
}

std::optional<UIColor>& classDisabledColor() {
  static std::optional<UIColor> color;
  return color;
}

const UIColor& disabledColor() {
  auto& color = classDisabledColor();
  if (!color) color = defaultDisabledColor();
  return *color;
}

}  // namespace

FreltaToggleButton::FreltaToggleButton(const CGRect& frame)
    : UIButton(UIButtonType::System, frame) {
  setup();
}

void FreltaToggleButton::setup() {
  setCornerRadius(frame().size.height / 2);
  setTitleColor(enableTitleColor());
  setBackgroundColor(disabledColor());
  setTitleFont(UIFont::boldSystemFontOfSize(kTitleSize));
}

void FreltaToggleButton::setDisabledColor(std::optional<UIColor> color) {
  classDisabledColor() = color;
}

void FreltaToggleButton::updateDisabledColor() {
  if (enabledState_ == FreltaEnabledStateNone) setBackgroundColor(disabledColor());
}

void FreltaToggleButton::setEnabledState(std::int32_t state, bool animated) {
  enabledState_ = state;
  animateWithDuration(animated ? kFadeSeconds : 0, [this] { showState(); });
}

void FreltaToggleButton::showState() {
  switch (enabledState_) {
    case FreltaEnabledStateNone:
      setBackgroundColor(disabledColor());
      setTitleColor(enableTitleColor());
      setTitle("Enable");
      break;
    case FreltaEnabledStatePartial:
      setBackgroundColor(pillOrangeColor());
      setTitleColor(UIColor::whiteColor());
      setTitle("Disable");
      break;
    case FreltaEnabledStateAll:
      setBackgroundColor(pillRedColor());
      setTitleColor(UIColor::whiteColor());
      setTitle("Disable");
      break;
    default:
      break;
  }
}

void FreltaToggleButton::setStyleName(std::string name) {
  if (name == styleName_) return;
  styleName_ = std::move(name);
  didChange();
}

UIAccessibility FreltaToggleButton::accessibility() const {
  UIAccessibility accessibility = UIButton::accessibility();
  if (title() && !styleName_.empty()) accessibility.label = *title() + " " + styleName_;
  return accessibility;
}

}  // namespace frelta
