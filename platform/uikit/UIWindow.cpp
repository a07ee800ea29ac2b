#include "uikit/UIWindow.h"

#include <algorithm>
#include <utility>

namespace frelta {

UIWindow::~UIWindow() {
  setRootViewController(nullptr);
}

void UIWindow::setRootViewController(std::shared_ptr<UIViewController> controller) {
  if (root_) {
    dismissFrom(*root_, false);
    root_->returnView(root_->view().removeFromSuperview());
  }
  root_ = std::move(controller);
  if (root_) addSubview(root_->takeView());
  setNeedsLayout();
}

UIWindow* UIWindow::windowOf(UIView& view) {
  UIView* top = &view;
  while (UIView* parent = top->superview()) top = parent;
  return dynamic_cast<UIWindow*>(top);
}

std::size_t UIWindow::levelOf(const UIViewController& controller) const {
  const auto found =
      std::ranges::find(presented_, &controller, &std::shared_ptr<UIViewController>::get);
  return found == presented_.end() ? 0 : static_cast<std::size_t>(found - presented_.begin()) + 1;
}

bool UIWindow::present(std::shared_ptr<UIViewController> controller,
                       const UIViewController& presenter, bool animated) {
  if (!controller || levelOf(presenter) != presented_.size() || levelOf(*controller) > 0)
    return false;
  presented_.push_back(controller);
  controller->view().setFrame(bounds());
  controller->viewWillAppear(animated);
  addSubview(controller->takeView());
  controller->viewDidAppear(animated);
  return true;
}

void UIWindow::dismissFrom(const UIViewController& controller, bool animated) {
  const std::size_t level = levelOf(controller);
  const std::size_t kept = level > 0 && level == presented_.size() ? level - 1 : level;
  while (presented_.size() > kept) takeAway(*presented_.back(), animated);
}

void UIWindow::takeAway(const UIViewController& controller, bool animated) {
  const std::size_t level = levelOf(controller);
  if (level == 0) return;
  const std::shared_ptr<UIViewController> leaving = presented_[level - 1];
  leaving->viewWillDisappear(animated);
  std::erase(presented_, leaving);
  leaving->returnView(leaving->view().removeFromSuperview());
  leaving->viewDidDisappear(animated);
}

UIViewController* UIWindow::presentedOver(const UIViewController& controller) const {
  const std::size_t level = levelOf(controller);
  return level < presented_.size() ? presented_[level].get() : nullptr;
}

UIViewController* UIWindow::presenterOf(const UIViewController& controller) const {
  const std::size_t level = levelOf(controller);
  if (level == 0) return nullptr;
  return level == 1 ? root_.get() : presented_[level - 2].get();
}

void UIWindow::layoutSubviews() {
  if (root_) root_->view().setFrame(bounds());
  for (const auto& controller : presented_) controller->view().setFrame(bounds());
}

}  // namespace frelta
