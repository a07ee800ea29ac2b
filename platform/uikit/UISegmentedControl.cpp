#include "uikit/UISegmentedControl.h"

#include <algorithm>

#include "uikit/UIKitServices.h"

namespace frelta {

namespace {
constexpr double kSegmentPadding = 12;
constexpr double kTitleSize = 13;
}  // namespace

UISegmentedControl::UISegmentedControl(std::vector<std::string> titles)
    : titles_(std::move(titles)) {}

void UISegmentedControl::setSelectedSegmentIndex(int index) {
  if (index < 0 || index >= static_cast<int>(titles_.size())) index = kNoSegment;
  if (index == selectedSegmentIndex_) return;
  selectedSegmentIndex_ = index;
  didChange();
}

void UISegmentedControl::selectSegment(int index) {
  if (!isEnabled() || index == selectedSegmentIndex_) return;
  setSelectedSegmentIndex(index);
  sendActionsForControlEvents(UIControlEventValueChanged);
}

CGSize UISegmentedControl::sizeThatFits(CGSize) const {
  double widest = 0;
  for (const std::string& title : titles_) {
    const UIFont font = UIFont::semiboldSystemFontOfSize(kTitleSize);
    widest = std::max(widest, UIKitServices::current().text->sizeOfText(title, font, 0, 1).width);
  }
  return {(widest + kSegmentPadding) * static_cast<double>(titles_.size()), kHeight};
}

UIAccessibility UISegmentedControl::accessibility() const {
  UIAccessibility accessibility = UIView::accessibility();
  accessibility.role = UIAccessibility::Role::Group;
  return accessibility;
}

}  // namespace frelta
