#pragma once

#include "uikit/UIButton.h"

namespace frelta {

/// An orange "Edit" pill.
class FreltaEditButton : public UIButton {
 public:
  /// In the superview's coordinates, points. The corners are rounded by half its height.
  explicit FreltaEditButton(const CGRect& frame);

 private:
  void setup();
};

}  // namespace frelta
