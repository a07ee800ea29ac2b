#pragma once

#include <string>

#include "graphics/UIFont.h"
#include "uikit/UIControl.h"
#include "uikit/UILabel.h"

namespace frelta {

enum class UITextFieldViewMode { Never, WhileEditing };

/// One line of text that the user edits.
class UITextField : public UIControl {
 public:
  using UIControl::UIControl;

  const std::string& text() const { return text_; }
  /// Sends no event.
  void setText(std::string text);
  const std::string& placeholder() const { return placeholder_; }
  void setPlaceholder(std::string placeholder);
  const UIFont& font() const { return font_; }
  void setFont(const UIFont& font);
  NSTextAlignment textAlignment() const { return textAlignment_; }
  void setTextAlignment(NSTextAlignment alignment);
  UITextFieldViewMode clearButtonMode() const { return clearButtonMode_; }
  void setClearButtonMode(UITextFieldViewMode mode);

  /// What typing does: sets the text and sends EditingChanged.
  void userDidEdit(std::string text);

  bool isFirstResponder() const override { return editing_; }
  /// Starts editing and sends EditingDidBegin.
  bool becomeFirstResponder() override;
  /// Ends editing and sends EditingDidEnd.
  bool resignFirstResponder() override;

  CGSize sizeThatFits(CGSize size) const override;

 private:
  std::string text_;
  std::string placeholder_;
  UIFont font_;
  NSTextAlignment textAlignment_ = NSTextAlignment::Natural;
  UITextFieldViewMode clearButtonMode_ = UITextFieldViewMode::Never;
  bool editing_ = false;
};

}  // namespace frelta
