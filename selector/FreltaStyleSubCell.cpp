#include "selector/FreltaStyleSubCell.h"

#include <utility>

#include "foundation/Platform.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "selector/FullPathLog.h"
#include "styles/CurrentSelector.h"
#include "uikit/UIAlertController.h"

namespace frelta {

namespace {

constexpr double kSideInset = 7;
constexpr double kTopInset = 2;
constexpr float kIconScale = 0.9F;

std::int32_t stateOf(const std::shared_ptr<FreltaStyleItem>& item) {
  return item && item->isEnabled() ? FreltaEnabledStateAll : FreltaEnabledStateNone;
}

std::string textOf(const std::optional<std::string>& text) {
  return text.value_or("(null)");
}

std::shared_ptr<UIAlertController> informationAlert(const FreltaStyleItem* item) {
  const std::string pack = "Style_PACK: " + (item ? textOf(item->fulltitle()) : textOf({}));
  const std::string style = "Style: " + (item ? textOf(item->identifier()) : textOf({}));
  auto alert = UIAlertController::alertControllerWithTitle("Style_INFO", pack + "\n" + style);
  alert->addAction(UIAlertAction::actionWithTitle("OK", UIAlertActionStyle::Default));
  return alert;
}

}  // namespace

FreltaStyleSubCell::FreltaStyleSubCell(const CGRect& frame) : UIView(frame) {
  setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
  setup();
}

void FreltaStyleSubCell::setup() {
  const CGSize size = frame().size;
  auto row = std::make_unique<FreltaStyleCellHeaderCell>(
      CGRect(kSideInset, kTopInset, size.width - 2 * kSideInset, size.height - 2 * kTopInset));
  contentView_ = row.get();
  contentView_->contentView()->setFrame(contentView_->bounds());

  FreltaToggleButton& enable = *contentView_->enableButton();
  enable.removeTarget(contentView_, "buttonTapped:", UIControlEventTouchUpInside);
  enable.addTarget(
      this, "buttonTapped:", [this](UIControl& sender) { buttonTapped(sender); },
      UIControlEventTouchUpInside);
  if (FreltaEditButton* edit = contentView_->editButton()) {
    edit->removeTarget(contentView_, "editButtonTapped:", UIControlEventTouchUpInside);
    edit->addTarget(
        this, "editButtonTapped:", [this](UIControl& sender) { editButtonTapped(sender); },
        UIControlEventTouchUpInside);
  }

  contentView_->setAutoresizingMask(UIViewAutoresizingFlexibleWidth |
                                    UIViewAutoresizingFlexibleHeight);
  contentView_->updateImageViewScale(kIconScale);
  contentView_->setIsDraggableCell(false);
  addSubview(std::move(row));

  auto press = std::make_unique<UILongPressGestureRecognizer>(
      [this](UIGestureRecognizer& recognizer) { handleLongPress(recognizer); });
  longPress_ = press.get();
  addGestureRecognizer(std::move(press));
}

void FreltaStyleSubCell::setStyleItem(std::shared_ptr<FreltaStyleItem> item) {
  styleItem_ = std::move(item);
  if (styleItem_) contentView_->updateButtonState(stateOf(styleItem_), false);
  contentView_->setIsDraggableCell(false);
}

UIAccessibility FreltaStyleSubCell::accessibility() const {
  UIAccessibility accessibility = UIView::accessibility();
  accessibility.role = UIAccessibility::Role::Group;
  accessibility.label = contentView_->headerLabel()->text();
  return accessibility;
}

void FreltaStyleSubCell::updateButtonState() {
  if (styleItem_) contentView_->updateButtonState(stateOf(styleItem_));
}

void FreltaStyleSubCell::buttonTapped(UIControl&) {
  const auto selector = currentSelector();
  if (selector && selector->isAnimating()) return;
  if (styleItem_ && selector) selector->setStyle(styleItem_, !styleItem_->isEnabled());
  contentView_->updateButtonState(stateOf(styleItem_));
  contentView_->setIsDraggableCell(false);
}

void FreltaStyleSubCell::editButtonTapped(UIControl&) {
  logFullPath(contentView_->StyleGroup().get());
}

void FreltaStyleSubCell::handleLongPress(UIGestureRecognizer&) {
  // The row may be gone by then; what the alert tells of is its style.
  Platform::current().mainQueue->async([item = styleItem_] {
    if (const auto selector = FreltaThemeSelectorViewController::current())
      selector->presentViewController(informationAlert(item.get()), true);
  });
}

}  // namespace frelta
