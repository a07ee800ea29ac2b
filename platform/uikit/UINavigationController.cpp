#include "uikit/UINavigationController.h"

#include <algorithm>

namespace frelta {

/// The bar at the top, the screen in what is left.
class UINavigationController::ContainerView : public UIView {
 public:
  explicit ContainerView(std::function<void()> onBack) {
    setBackgroundColor(UIColor::systemGroupedBackgroundColor());
    bar = addSubview(std::make_unique<UINavigationBar>(std::move(onBack)));
  }

  void layoutSubviews() override {
    const CGSize size = frame().size;
    bar->setFrame({0, 0, size.width, UINavigationBar::kHeight});
    if (screen) {
      screen->setFrame({0, UINavigationBar::kHeight, size.width,
                        std::max(0.0, size.height - UINavigationBar::kHeight)});
    }
  }

  UINavigationBar* bar;
  UIView* screen = nullptr;
};

UINavigationController::~UINavigationController() {
  for (const auto& controller : stack_) {
    controller->navigationItem().setObserver(nullptr);
    controller->setNavigationController(nullptr);
  }
  // Screens may outlive the stack, and then they need their views.
  if (container_ && container_->screen)
    stack_.back()->returnView(container_->screen->removeFromSuperview());
}

std::unique_ptr<UIView> UINavigationController::loadView() {
  auto container = std::make_unique<ContainerView>([this] { popViewControllerAnimated(true); });
  container_ = container.get();
  bar_ = container_->bar;
  return container;
}

void UINavigationController::viewDidLoad() {
  updateBar();
}

UINavigationBar& UINavigationController::navigationBar() {
  view();
  return *bar_;
}

void UINavigationController::pushViewController(std::shared_ptr<UIViewController> controller,
                                                bool animated) {
  view();
  UIViewController* leaving = topViewController();
  controller->setNavigationController(this);
  stack_.push_back(controller);
  replace(leaving, *controller, animated);
}

std::shared_ptr<UIViewController> UINavigationController::popViewControllerAnimated(bool animated) {
  if (stack_.size() < 2) return nullptr;
  std::shared_ptr<UIViewController> popped = std::move(stack_.back());
  stack_.pop_back();
  replace(popped.get(), *stack_.back(), animated);
  popped->setNavigationController(nullptr);
  return popped;
}

void UINavigationController::replace(UIViewController* leaving, UIViewController& coming,
                                     bool animated) {
  coming.view();
  if (leaving) {
    leaving->view().endEditing(true);
    leaving->viewWillDisappear(animated);
  }
  coming.viewWillAppear(animated);
  if (leaving) {
    leaving->navigationItem().setObserver(nullptr);
    leaving->returnView(leaving->view().removeFromSuperview());
  }
  container_->screen = container_->addSubview(coming.takeView());
  coming.navigationItem().setObserver([this] { updateBar(); });
  updateBar();
  if (leaving) leaving->viewDidDisappear(animated);
  coming.viewDidAppear(animated);
}

void UINavigationController::updateBar() {
  if (!bar_) return;
  const std::size_t count = stack_.size();
  std::optional<std::string> backTitle;
  if (count > 1 && !stack_.back()->navigationItem().hidesBackButton()) {
    backTitle = stack_[count - 2]->title();
  }
  // What is read when the screen opens.
  if (count) stack_.back()->view().setAccessibility({.label = stack_.back()->title()});
  bar_->show(count ? stack_.back()->title() : std::string(), backTitle);
  bar_->showRightItem(count ? stack_.back()->navigationItem().rightBarButtonItem() : nullptr);
}

}  // namespace frelta
