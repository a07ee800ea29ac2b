#include "uikit/UIButton.h"

#include <algorithm>

#include "uikit/UIKitServices.h"

namespace frelta {

namespace {
constexpr double kChevronWidth = 20;
constexpr double kMinimumTouchHeight = 44;  // the platform's guideline for anything that is tapped
}  // namespace

void UIButton::setTitle(std::string title) {
  if (title_ == title) return;
  title_ = std::move(title);
  didChange();
}

void UIButton::setTitleColor(const UIColor& color) {
  if (color == titleColor_) return;
  titleColor_ = color;
  didChange();
}

void UIButton::setTitleFont(const UIFont& font) {
  if (font == titleFont_) return;
  titleFont_ = font;
  didChange();
}

CGSize UIButton::sizeThatFits(CGSize) const {
  CGSize size = UIKitServices::current().text->sizeOfText(title_.value_or(""), titleFont_, 0, 1);
  if (buttonType_ == UIButtonType::Back) size.width += kChevronWidth;
  if (buttonType_ == UIButtonType::Add) size.width = kMinimumTouchHeight;
  size.height = std::max(size.height, kMinimumTouchHeight);
  return size;
}

UIAccessibility UIButton::accessibility() const {
  UIAccessibility accessibility = UIView::accessibility();
  accessibility.isElement = true;
  accessibility.role = UIAccessibility::Role::Button;
  if (accessibility.label.empty()) accessibility.label = title_.value_or("");
  return accessibility;
}

}  // namespace frelta
