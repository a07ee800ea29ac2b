#pragma once

#include <string>

#include "graphics/UIFont.h"
#include "uikit/UIView.h"

namespace frelta {

enum class NSTextAlignment { Left, Center, Right, Natural };

/// Text that cannot be edited.
class UILabel : public UIView {
 public:
  UILabel() = default;
  explicit UILabel(const CGRect& frame) : UIView(frame) {}

  const std::string& text() const { return text_; }
  void setText(std::string text);
  const UIFont& font() const { return font_; }
  void setFont(const UIFont& font);
  const UIColor& textColor() const { return textColor_; }
  void setTextColor(const UIColor& color);
  /// Natural is the leading side of the reading direction.
  NSTextAlignment textAlignment() const { return textAlignment_; }
  void setTextAlignment(NSTextAlignment alignment);
  /// 0 for as many as are needed; 1 at first. Text that does not fit ends in an ellipsis.
  int numberOfLines() const { return numberOfLines_; }
  void setNumberOfLines(int lines);
  /// Whether a line that is too long is drawn smaller, down to minimumScaleFactor, before it is
  /// cut.
  bool adjustsFontSizeToFitWidth() const { return adjustsFontSizeToFitWidth_; }
  void setAdjustsFontSizeToFitWidth(bool adjusts);
  double minimumScaleFactor() const { return minimumScaleFactor_; }
  void setMinimumScaleFactor(double factor);

  /// A label of one line ignores the width; one of several breaks at it.
  CGSize sizeThatFits(CGSize size) const override;
  UIAccessibility accessibility() const override;

 private:
  std::string text_;
  UIFont font_;
  UIColor textColor_ = UIColor::labelColor();
  NSTextAlignment textAlignment_ = NSTextAlignment::Natural;
  int numberOfLines_ = 1;
  bool adjustsFontSizeToFitWidth_ = false;
  double minimumScaleFactor_ = 0;
};

}  // namespace frelta
