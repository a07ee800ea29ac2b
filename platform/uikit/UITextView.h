#pragma once

#include <string>

#include "graphics/UIFont.h"
#include "uikit/UILabel.h"
#include "uikit/UIView.h"

namespace frelta {

/// Text of any length that is read, selected and scrolled, not edited.
class UITextView : public UIView {
 public:
  using UIView::UIView;

  const std::string& text() const { return text_; }
  void setText(std::string text);
  const UIFont& font() const { return font_; }
  void setFont(const UIFont& font);
  NSTextAlignment textAlignment() const { return textAlignment_; }
  void setTextAlignment(NSTextAlignment alignment);

  /// The given width, and the height of the text in it, at most the given one unless that is 0.
  CGSize sizeThatFits(CGSize size) const override;
  UIAccessibility accessibility() const override;

 private:
  std::string text_;
  UIFont font_;
  NSTextAlignment textAlignment_ = NSTextAlignment::Natural;
};

}  // namespace frelta
