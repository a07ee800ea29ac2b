#pragma once

#include <string>
#include <vector>

#include "uikit/UIControl.h"

namespace frelta {

/// A row of exclusive choices.
class UISegmentedControl : public UIControl {
 public:
  static constexpr int kNoSegment = -1;
  /// The platform's height, points.
  static constexpr double kHeight = 32;

  explicit UISegmentedControl(std::vector<std::string> titles);

  const std::vector<std::string>& titles() const { return titles_; }
  int selectedSegmentIndex() const { return selectedSegmentIndex_; }
  /// kNoSegment, or any index out of range, selects none. Sends no event.
  void setSelectedSegmentIndex(int index);
  /// What a tap on a segment does: selects it and, when that is a change, sends ValueChanged.
  void selectSegment(int index);

  CGSize sizeThatFits(CGSize size) const override;
  UIAccessibility accessibility() const override;

 private:
  std::vector<std::string> titles_;
  int selectedSegmentIndex_ = kNoSegment;
};

}  // namespace frelta
