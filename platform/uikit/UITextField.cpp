#include "uikit/UITextField.h"

#include "uikit/UIKitServices.h"

namespace frelta {

void UITextField::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  didChange();
}

void UITextField::setPlaceholder(std::string placeholder) {
  if (placeholder == placeholder_) return;
  placeholder_ = std::move(placeholder);
  didChange();
}

void UITextField::setFont(const UIFont& font) {
  if (font == font_) return;
  font_ = font;
  didChange();
}

void UITextField::setTextAlignment(NSTextAlignment alignment) {
  if (alignment == textAlignment_) return;
  textAlignment_ = alignment;
  didChange();
}

void UITextField::setClearButtonMode(UITextFieldViewMode mode) {
  if (mode == clearButtonMode_) return;
  clearButtonMode_ = mode;
  didChange();
}

void UITextField::userDidEdit(std::string text) {
  if (!isEnabled() || text == text_) return;
  setText(std::move(text));
  sendActionsForControlEvents(UIControlEventEditingChanged);
}

bool UITextField::becomeFirstResponder() {
  if (editing_ || !isEnabled()) return editing_;
  editing_ = true;
  didChange();
  sendActionsForControlEvents(UIControlEventEditingDidBegin);
  return true;
}

bool UITextField::resignFirstResponder() {
  if (!editing_) return true;
  editing_ = false;
  didChange();
  sendActionsForControlEvents(UIControlEventEditingDidEnd);
  return true;
}

CGSize UITextField::sizeThatFits(CGSize size) const {
  return {size.width, UIKitServices::current().text->sizeOfText("", font_, 0, 1).height};
}

}  // namespace frelta
