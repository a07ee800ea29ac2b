#include "uikit/UIAlertController.h"

#include <algorithm>
#include <utility>

#include "uikit/UIAlertControllerView.h"

namespace frelta {

namespace {

UIAlertAction* firstOfStyle(std::span<const std::shared_ptr<UIAlertAction>> actions,
                            UIAlertActionStyle style) {
  const auto found =
      std::ranges::find_if(actions, [style](const auto& a) { return a->style() == style; });
  return found == actions.end() ? nullptr : found->get();
}

}  // namespace

std::shared_ptr<UIAlertController> UIAlertController::alertControllerWithTitle(
    std::string title, std::string message) {
  return std::shared_ptr<UIAlertController>(
      new UIAlertController(std::move(title), std::move(message)));
}

UIAlertController::UIAlertController(std::string title, std::string message)
    : message_(std::move(message)) {
  setTitle(std::move(title));
}

void UIAlertController::addAction(std::shared_ptr<UIAlertAction> action) {
  actions_.push_back(std::move(action));
}

void UIAlertController::addTextFieldWithConfigurationHandler(const Configure& configure) {
  auto field = std::make_unique<UITextField>();
  field->setFont(UIFont::systemFontOfSize(UIAlertControllerView::kTextPointSize));
  if (configure) configure(*field);
  textFields_.push_back(field.get());
  newTextFields_.push_back(std::move(field));
}

UIAlertAction* UIAlertController::defaultAction() const {
  UIAlertAction* action = firstOfStyle(actions_, UIAlertActionStyle::Default);
  return action ? action : cancelAction();
}

UIAlertAction* UIAlertController::cancelAction() const {
  UIAlertAction* action = firstOfStyle(actions_, UIAlertActionStyle::Cancel);
  return !action && actions_.size() == 1 ? actions_.front().get() : action;
}

void UIAlertController::userDidPressAction(const UIAlertAction& action) {
  const auto found = std::ranges::find(actions_, &action, &std::shared_ptr<UIAlertAction>::get);
  if (found == actions_.end() || !presentingViewController()) return;
  const std::shared_ptr<UIViewController> self = shared_from_this();
  const std::shared_ptr<UIAlertAction> pressed = *found;
  dismissViewControllerAnimated(true);
  pressed->perform();
}

std::unique_ptr<UIView> UIAlertController::loadView() {
  return std::make_unique<UIAlertControllerView>(*this, std::move(newContentView_),
                                                 std::exchange(newTextFields_, {}));
}

void UIAlertController::viewDidAppear(bool) {
  if (!textFields_.empty()) textFields_.front()->becomeFirstResponder();
}

void UIAlertController::viewWillDisappear(bool) {
  view().endEditing(true);
}

}  // namespace frelta
