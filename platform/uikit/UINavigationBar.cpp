#include "uikit/UINavigationBar.h"

#include <algorithm>
#include <utility>

namespace frelta {

namespace {
constexpr double kMargin = 8;
// The way back keeps at least this share of the bar clear for the title.
constexpr double kLongestBackShare = 0.35;
}  // namespace

UINavigationBar::UINavigationBar(std::function<void()> onBack) : onBack_(std::move(onBack)) {
  backButton_ = addSubview(std::make_unique<UIButton>(UIButtonType::Back));
  backButton_->addTarget(
      this, "back", [this](UIControl&) { onBack_(); }, UIControlEventTouchUpInside);
  titleLabel_ = addSubview(std::make_unique<UILabel>());
  titleLabel_->setFont(UIFont::semiboldSystemFontOfSize(17));
  titleLabel_->setTextAlignment(NSTextAlignment::Center);
  titleLabel_->setAccessibility({.role = UIAccessibility::Role::Heading});
  rightButton_ = addSubview(std::make_unique<UIButton>(UIButtonType::Add));
  rightButton_->setAccessibility({.label = "Add"});
  rightButton_->addTarget(
      this, "right",
      [this](UIControl&) {
        // The action may replace the item.
        if (const std::shared_ptr<UIBarButtonItem> item = rightItem_) item->perform();
      },
      UIControlEventTouchUpInside);
  showRightItem(nullptr);
}

void UINavigationBar::show(const std::string& title, const std::optional<std::string>& backTitle) {
  titleLabel_->setText(title);
  backButton_->setHidden(!backTitle);
  if (backTitle) {
    backButton_->setTitle(backTitle->empty() ? "Back" : *backTitle);
    backButton_->setAccessibility({.label = backTitle->empty() ? "Back" : "Back to " + *backTitle});
  }
  setNeedsLayout();
}

void UINavigationBar::showRightItem(std::shared_ptr<UIBarButtonItem> item) {
  rightItem_ = std::move(item);
  rightButton_->setHidden(!rightItem_);
  setNeedsLayout();
}

void UINavigationBar::layoutSubviews() {
  const CGSize size = frame().size;
  const double backWidth = backButton_->isHidden() ? 0
                                                   : std::min(backButton_->sizeThatFits(size).width,
                                                              size.width * kLongestBackShare);
  backButton_->setFrame({kMargin, 0, backWidth, size.height});
  const double rightWidth = rightButton_->isHidden() ? 0 : rightButton_->sizeThatFits(size).width;
  rightButton_->setFrame({size.width - kMargin - rightWidth, 0, rightWidth, size.height});
  const CGSize title = titleLabel_->sizeThatFits(size);
  const double leading = kMargin + backWidth + kMargin;
  const double trailing = kMargin + (rightWidth > 0 ? rightWidth + kMargin : 0);
  const double side = std::max(leading, trailing);
  const double room = std::max(0.0, size.width - 2 * side);
  if (title.width <= room) {
    titleLabel_->setFrame({side, 0, room, size.height});
  } else {
    // Too long to stand in the middle: it takes what is left beside the buttons.
    titleLabel_->setFrame(
        {leading, 0, std::max(0.0, size.width - leading - trailing), size.height});
  }
}

}  // namespace frelta
