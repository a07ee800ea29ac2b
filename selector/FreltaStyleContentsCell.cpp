#include "selector/FreltaStyleContentsCell.h"

#include <algorithm>
#include <utility>

#include "selector/FreltaThemeSelectorViewController.h"
#include "selector/GroundColors.h"
#include "selector/HeaderGeometry.h"

namespace frelta {

namespace {

constexpr double kCornerRadius = 15;
constexpr double kIconShare = 0.8;
constexpr double kTitleSize = 24;
constexpr double kSubtitleSize = 18;
constexpr float kMinimumScale = 0.2F;

std::optional<UIColor>& classBackgroundColor() {
  static std::optional<UIColor> color;
  return color;
}

}  // namespace

FreltaStyleContentsCell::FreltaStyleContentsCell(const CGRect& frame) : UIView(frame) {
  setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
  setup();
}

void FreltaStyleContentsCell::setup() {
  addCard();
  addIcon();
  addLabels();
  addEnableButton();
}

void FreltaStyleContentsCell::setCustomBackgroundColor(std::optional<UIColor> color) {
  classBackgroundColor() = color;
}

void FreltaStyleContentsCell::addCard() {
  const CGSize inset = contentViewPadding();
  const double closedHeight = FreltaThemeSelectorViewController::minimisedCellHeight();
  auto card = std::make_unique<UIView>(CGRect(inset.width, inset.height,
                                              frame().size.width - 2 * inset.width,
                                              closedHeight - 2 * inset.height));
  auto& color = classBackgroundColor();
  if (!color) color = defaultCardColor();
  card->setBackgroundColor(*color);
  card->setCornerRadius(kCornerRadius);
  card->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  contentView_ = addSubview(std::move(card));
}

void FreltaStyleContentsCell::addIcon() {
  const double side = kIconShare * cardHeight();
  auto icon = std::make_unique<UIImageView>(CGRect(padding(), padding(), side, side));
  iconImageView_ = contentView_->addSubview(std::move(icon));
  centerVertically(*iconImageView_);
  iconImageView_->setContentMode(UIViewContentMode::ScaleAspectFit);
  iconImageView_->setAutoresizingMask(UIViewAutoresizingFlexibleTopMargin |
                                      UIViewAutoresizingFlexibleBottomMargin);
  iconImageView_->setHidden(true);
}

void FreltaStyleContentsCell::addLabels() {
  const float x = labelX();
  const double width = frame().size.width - x - 2 * padding() - buttonSize().width;
  const auto height = static_cast<float>(cardHeight() * 0.5 - 2 * padding());
  const double top = iconImageView_->frame().minY();
  const auto add = [&](double y, double labelHeight, double pointSize) {
    auto label = std::make_unique<UILabel>(CGRect(x, y, width, labelHeight));
    label->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    label->setFont(UIFont::systemFontOfSize(pointSize));
    label->setAdjustsFontSizeToFitWidth(true);
    label->setMinimumScaleFactor(kMinimumScale);
    return contentView_->addSubview(std::move(label));
  };
  headerLabel_ = add(top, height, kTitleSize);
  subtitleLabel_ = add(top + height + padding(), height - padding(), kSubtitleSize);
  subtitleLabel_->setTextColor(UIColor::darkGrayColor());
}

void FreltaStyleContentsCell::addEnableButton() {
  const CGSize size = buttonSize();
  const auto x = static_cast<float>(contentView_->frame().size.width - size.width - padding());
  enableButton_ =
      contentView_->addSubview(std::make_unique<FreltaToggleButton>(CGRect({x, padding()}, size)));
  centerVertically(*enableButton_);
  enableButton_->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin);
  enableButton_->addTarget(
      this, "buttonTapped:", [this](UIControl& sender) { buttonTapped(sender); },
      UIControlEventTouchUpInside);
}

void FreltaStyleContentsCell::setEditButton(std::unique_ptr<FreltaEditButton> button) {
  if (editButton_) editButton_->removeFromSuperview();
  editButton_ = button ? contentView_->addSubview(std::move(button)) : nullptr;
}

void FreltaStyleContentsCell::setTitleText(const std::optional<std::string>& text) {
  headerLabel_->setText(text.value_or(""));
  enableButton_->setStyleName(headerLabel_->text());
  headerLabel_->sizeToFit();
  layoutLabels();
}

void FreltaStyleContentsCell::setSubtitleText(const std::optional<std::string>& text) {
  subtitleLabel_->setText(text.value_or(""));
  subtitleLabel_->sizeToFit();
  layoutLabels();
}

void FreltaStyleContentsCell::setIconImage(std::shared_ptr<const UIImage> image) {
  awaitedIcon_.reset();
  iconImageView_->setImage(std::move(image));
}

void FreltaStyleContentsCell::loadIconImage(const IconLoad& load,
                                            std::shared_ptr<const UIImage> standIn) {
  const std::shared_ptr<const void> awaited = std::make_shared<const bool>();
  awaitedIcon_ = awaited;
  load(awaited, [this](std::shared_ptr<const UIImage> icon) { setIconImage(std::move(icon)); });
  if (awaitedIcon_ == awaited) iconImageView_->setImage(std::move(standIn));
}

void FreltaStyleContentsCell::setStandIn(std::shared_ptr<const UIImage> standIn) {
  if (awaitedIcon_ && !iconImageView_->image()) iconImageView_->setImage(std::move(standIn));
}

void FreltaStyleContentsCell::updateButtonState(std::int32_t state, bool animated) {
  enableButton_->setEnabledState(state, animated);
}

void FreltaStyleContentsCell::updateImageViewScale(float scale) {
  const auto inset = static_cast<float>(padding());
  const double side = cardHeight() * scale;
  iconImageView_->setFrame({inset, padding(), side, side});
  centerVertically(*iconImageView_);
  fitLabels();
}

void FreltaStyleContentsCell::fitLabels() {
  headerLabel_->sizeToFit();
  subtitleLabel_->sizeToFit();
  layoutLabels();
}

void FreltaStyleContentsCell::layoutLabels() {
  auto limit = static_cast<float>(contentView_->frame().size.width - labelX() - 4 * padding() -
                                  buttonSize().width);
  if (isDraggableCell()) limit -= kDraggableLabelInset;
  const double widest = std::max(0.0F, limit);

  CGRect title = headerLabel_->frame();
  title.origin.y = cardHeight() / 2 - title.size.height;
  title.size.width = std::min(title.size.width, widest);
  headerLabel_->setFrame(title);

  CGRect subtitle = subtitleLabel_->frame();
  subtitle.origin.y = title.maxY();
  subtitle.size.width = std::min(subtitle.size.width, widest);
  subtitleLabel_->setFrame(subtitle);
}

void FreltaStyleContentsCell::setIsDraggableCell(bool) {
  isDraggableCell_ = false;
  const CGSize size = buttonSize();
  auto x = static_cast<float>(contentView_->frame().size.width - size.width - padding());
  if (isDraggableCell() && !iconImageView_->isHidden()) x -= kHandleRoom;
  enableButton_->setFrame({{x, padding()}, size});
  centerVertically(*enableButton_);
  if (editButton_) editButton_->setFrame({{x, enableButton_->frame().maxY() + padding()}, size});
  fitLabels();
}

void FreltaStyleContentsCell::centerVertically(UIView& view) const {
  view.setCenter({view.center().x, cardHeight() / 2});
}

float FreltaStyleContentsCell::labelX() const {
  const CGRect icon = iconImageView_->frame();
  return static_cast<float>(icon.minX() + icon.size.width + padding());
}

}  // namespace frelta
