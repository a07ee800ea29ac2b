#include "selector/FreltaEditButton.h"

#include "selector/PillColors.h"

namespace frelta {

FreltaEditButton::FreltaEditButton(const CGRect& frame) : UIButton(UIButtonType::System, frame) {
  setup();
}

void FreltaEditButton::setup() {
  setCornerRadius(frame().size.height / 2);
  setTitleColor(UIColor::whiteColor());
  setBackgroundColor(pillOrangeColor());
  setTitleFont(UIFont::boldSystemFontOfSize(16));
  setTitle("Edit");
}

}  // namespace frelta
