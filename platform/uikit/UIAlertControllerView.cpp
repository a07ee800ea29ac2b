#include "uikit/UIAlertControllerView.h"

#include <algorithm>

#include "uikit/UIAlertController.h"

namespace frelta {

namespace {

constexpr double kCardWidth = 270;
constexpr double kSmallestMargin = 10;  // between the card and the window's edges
constexpr double kCornerRadius = 14;
constexpr double kInset = 16;
constexpr double kVerticalInset = 19;
constexpr double kTitleGap = 4;
constexpr double kContentGap = 12;
constexpr double kFieldsGap = 16;
constexpr double kFieldHeight = 30;
constexpr double kFieldGap = 8;
constexpr double kFieldInset = 8;
constexpr double kButtonHeight = 44;
constexpr double kButtonInset = 8;
constexpr double kHairline = 0.5;
constexpr double kTitlePointSize = 17;

UIColor cardColor() {
  return UIColor::colorWithLightAndDark({0.96, 0.96, 0.97, 1}, {0.17, 0.17, 0.18, 1});
}

UIColor fieldColor() {
  return UIColor::colorWithLightAndDark({1, 1, 1, 1}, {0.11, 0.11, 0.12, 1});
}

std::unique_ptr<UIView> coloured(const UIColor& color) {
  auto view = std::make_unique<UIView>();
  view->setBackgroundColor(color);
  return view;
}

}  // namespace

UIAlertControllerView::UIAlertControllerView(UIAlertController& controller,
                                             std::unique_ptr<UIView> content,
                                             std::vector<std::unique_ptr<UITextField>> fields)
    : controller_(controller) {
  card_ = addSubview(coloured(cardColor()));
  card_->setCornerRadius(kCornerRadius);
  title_ = card_->addSubview(std::make_unique<UILabel>());
  title_->setText(controller.title());
  title_->setFont(UIFont::semiboldSystemFontOfSize(kTitlePointSize));
  title_->setTextAlignment(NSTextAlignment::Center);
  title_->setNumberOfLines(0);
  title_->setAccessibility({.role = UIAccessibility::Role::Heading});
  message_ = card_->addSubview(std::make_unique<UITextView>());
  message_->setText(controller.message());
  // The keyboard would stop at an empty one.
  message_->setHidden(controller.message().empty());
  message_->setFont(UIFont::systemFontOfSize(kTextPointSize));
  message_->setTextAlignment(NSTextAlignment::Center);
  if (content) content_ = card_->addSubview(std::move(content));
  for (auto& field : fields) {
    fieldFrames_.push_back(card_->addSubview(coloured(fieldColor())));
    fieldFrames_.back()->setCornerRadius(kFieldInset);
    fields_.push_back(fieldFrames_.back()->addSubview(std::move(field)));
  }
  addButtons();
}

void UIAlertControllerView::addButtons() {
  for (const auto& action : controller_.actions()) {
    separators_.push_back(card_->addSubview(coloured(UIColor::separatorColor())));
    UIButton* button = buttons_.emplace_back(card_->addSubview(std::make_unique<UIButton>()));
    button->setTitle(action->title());
    // What stands out is what the Return key presses.
    button->setTitleFont(action.get() == controller_.defaultAction()
                             ? UIFont::semiboldSystemFontOfSize(kTitlePointSize)
                             : UIFont::systemFontOfSize(kTitlePointSize));
    if (action->style() == UIAlertActionStyle::Destructive)
      button->setTitleColor(UIColor::systemRedColor());
    button->addTarget(
        this, "press",
        [this, action = action.get()](UIControl&) { controller_.userDidPressAction(*action); },
        UIControlEventTouchUpInside);
  }
}

UIView* UIAlertControllerView::initialFocus() const {
  if (!fields_.empty()) return fields_.front();
  const auto actions = controller_.actions();
  const auto found =
      std::ranges::find(actions, controller_.defaultAction(), &std::shared_ptr<UIAlertAction>::get);
  if (found == actions.end()) return nullptr;
  return buttons_[static_cast<std::size_t>(found - actions.begin())];
}

void UIAlertControllerView::layoutSubviews() {
  const CGSize size = frame().size;
  const double width = std::min(kCardWidth, std::max(0.0, size.width - 2 * kSmallestMargin));
  const double textWidth = std::max(0.0, width - 2 * kInset);
  const double titleHeight = title_->sizeThatFits({textWidth, 0}).height;
  title_->setFrame({kInset, kVerticalInset, textWidth, titleHeight});

  const double fieldsHeight =
      fields_.empty()
          ? 0
          : kFieldsGap + static_cast<double>(fields_.size()) * (kFieldHeight + kFieldGap) -
                kFieldGap;
  const double buttonsHeight =
      kButtonHeight * (buttonsFitSideBySide(width) ? 1.0 : static_cast<double>(buttons_.size()));
  const double rest = 2 * kVerticalInset + titleHeight + kTitleGap + fieldsHeight + buttonsHeight;
  const double room = std::max(kTextPointSize, size.height - 2 * kSmallestMargin - rest);
  const double messageHeight =
      controller_.message().empty() ? 0 : message_->sizeThatFits({textWidth, room}).height;
  message_->setFrame({kInset, title_->frame().maxY() + kTitleGap, textWidth, messageHeight});
  double end = message_->frame().maxY();
  if (content_) {
    const CGSize contentRoom{textWidth, std::max(0.0, room - messageHeight - kContentGap)};
    const double contentHeight = content_->sizeThatFits(contentRoom).height;
    content_->setFrame({kInset, end + kContentGap, textWidth, contentHeight});
    end = content_->frame().maxY();
  }

  double top = end + kFieldsGap;
  for (std::size_t i = 0; i < fields_.size(); ++i, top += kFieldHeight + kFieldGap) {
    fieldFrames_[i]->setFrame({kInset, top, textWidth, kFieldHeight});
    fields_[i]->setFrame(
        {kFieldInset, 0, std::max(0.0, textWidth - 2 * kFieldInset), kFieldHeight});
  }
  const double height = layoutButtons(end + fieldsHeight + kVerticalInset, width);
  card_->setFrame(
      {(size.width - width) / 2, std::max(0.0, (size.height - height) / 2), width, height});
}

bool UIAlertControllerView::buttonsFitSideBySide(double width) const {
  if (buttons_.size() != 2) return buttons_.size() < 2;
  return std::ranges::all_of(buttons_, [&](const UIButton* button) {
    return button->sizeThatFits({}).width <= width / 2 - 2 * kButtonInset;
  });
}

double UIAlertControllerView::layoutButtons(double top, double width) {
  const bool sideBySide = buttonsFitSideBySide(width) && buttons_.size() == 2;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const double column = sideBySide && i == 1 ? width / 2 : 0;
    const double buttonWidth = sideBySide ? width / 2 : width;
    if (column > 0) {
      separators_[i]->setFrame({column, top - kButtonHeight, kHairline, kButtonHeight});
      buttons_[i]->setFrame({column, top - kButtonHeight, buttonWidth, kButtonHeight});
      continue;
    }
    separators_[i]->setFrame({0, top, width, kHairline});
    buttons_[i]->setFrame({0, top, buttonWidth, kButtonHeight});
    top += kButtonHeight;
  }
  return top;
}

}  // namespace frelta
