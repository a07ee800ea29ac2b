#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "uikit/UIBarButtonItem.h"
#include "uikit/UIButton.h"
#include "uikit/UILabel.h"
#include "uikit/UIView.h"

namespace frelta {

/// The bar above the screens of a stack: title, way back and a button of the screen.
class UINavigationBar : public UIView {
 public:
  /// The platform's height, points.
  static constexpr double kHeight = 44;

  /// Calls onBack when the way back is pressed.
  explicit UINavigationBar(std::function<void()> onBack);

  /// An absent back title shows no way back, an empty one a word of the bar's own.
  void show(const std::string& title, const std::optional<std::string>& backTitle);
  /// The button at the trailing edge; null for none.
  void showRightItem(std::shared_ptr<UIBarButtonItem> item);
  UIButton* backButton() const { return backButton_; }
  UIButton* rightButton() const { return rightButton_; }
  UILabel* titleLabel() const { return titleLabel_; }

  void layoutSubviews() override;

 private:
  std::function<void()> onBack_;
  std::shared_ptr<UIBarButtonItem> rightItem_;
  UIButton* backButton_;  // owned as subviews
  UILabel* titleLabel_;
  UIButton* rightButton_;
};

}  // namespace frelta
