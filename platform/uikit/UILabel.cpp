#include "uikit/UILabel.h"

#include "uikit/UIKitServices.h"

namespace frelta {

void UILabel::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  didChange();
}

void UILabel::setFont(const UIFont& font) {
  if (font == font_) return;
  font_ = font;
  didChange();
}

void UILabel::setTextColor(const UIColor& color) {
  if (color == textColor_) return;
  textColor_ = color;
  didChange();
}

void UILabel::setTextAlignment(NSTextAlignment alignment) {
  if (alignment == textAlignment_) return;
  textAlignment_ = alignment;
  didChange();
}

void UILabel::setNumberOfLines(int lines) {
  if (lines == numberOfLines_) return;
  numberOfLines_ = lines;
  didChange();
}

void UILabel::setAdjustsFontSizeToFitWidth(bool adjusts) {
  if (adjusts == adjustsFontSizeToFitWidth_) return;
  adjustsFontSizeToFitWidth_ = adjusts;
  didChange();
}

void UILabel::setMinimumScaleFactor(double factor) {
  if (factor == minimumScaleFactor_) return;
  minimumScaleFactor_ = factor;
  didChange();
}

CGSize UILabel::sizeThatFits(CGSize size) const {
  if (text_.empty()) return {};
  const double maximumWidth = numberOfLines_ == 1 ? 0 : size.width;
  return UIKitServices::current().text->sizeOfText(text_, font_, maximumWidth, numberOfLines_);
}

UIAccessibility UILabel::accessibility() const {
  UIAccessibility accessibility = UIView::accessibility();
  if (accessibility.role == UIAccessibility::Role::None) {
    accessibility.role = UIAccessibility::Role::StaticText;
  }
  if (accessibility.label.empty()) accessibility.label = text_;
  accessibility.isElement = !accessibility.label.empty();
  return accessibility;
}

}  // namespace frelta
