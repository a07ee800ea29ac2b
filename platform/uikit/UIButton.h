#pragma once

#include <optional>
#include <string>

#include "graphics/UIFont.h"
#include "uikit/UIControl.h"

namespace frelta {

/// How a button looks when nothing else is said.
enum class UIButtonType {
  /// Text alone, dimmed while pressed.
  System,
  /// The navigation bar's way back: a chevron before the title.
  Back,
  /// The navigation bar's plus sign.
  Add,
};

class UIButton : public UIControl {
 public:
  explicit UIButton(UIButtonType type = UIButtonType::System, const CGRect& frame = {})
      : UIControl(frame), buttonType_(type) {}

  UIButtonType buttonType() const { return buttonType_; }
  /// The title of the normal state; nothing until it is first set.
  const std::optional<std::string>& title() const { return title_; }
  void setTitle(std::string title);
  const UIColor& titleColor() const { return titleColor_; }
  void setTitleColor(const UIColor& color);
  const UIFont& titleFont() const { return titleFont_; }
  void setTitleFont(const UIFont& font);

  CGSize sizeThatFits(CGSize size) const override;
  UIAccessibility accessibility() const override;

 private:
  UIButtonType buttonType_;
  std::optional<std::string> title_;
  UIColor titleColor_ = UIColor::systemBlueColor();
  UIFont titleFont_;
};

}  // namespace frelta
