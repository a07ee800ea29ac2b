#pragma once

#include <memory>
#include <span>
#include <vector>

#include "uikit/UINavigationBar.h"
#include "uikit/UIViewController.h"

namespace frelta {

/// A stack of screens; the top one shows below the bar.
class UINavigationController : public UIViewController {
 public:
  ~UINavigationController() override;

  /// Puts a screen on the stack: the old top disappears, the new one appears.
  void pushViewController(std::shared_ptr<UIViewController> controller, bool animated);
  /// Takes the top screen off and gives it to the caller; null when it is the last.
  std::shared_ptr<UIViewController> popViewControllerAnimated(bool animated);

  std::span<const std::shared_ptr<UIViewController>> viewControllers() const { return stack_; }
  /// Null while the stack is empty.
  UIViewController* topViewController() const {
    return stack_.empty() ? nullptr : stack_.back().get();
  }
  UINavigationBar& navigationBar();

  void viewDidLoad() override;

 private:
  class ContainerView;

  /// The screen that leaves is null when there was none.
  void replace(UIViewController* leaving, UIViewController& coming, bool animated);
  void updateBar();

  std::vector<std::shared_ptr<UIViewController>> stack_;
  UINavigationBar* bar_ = nullptr;  // owned by the view
  ContainerView* container_ = nullptr;

 protected:
  std::unique_ptr<UIView> loadView() override;
};

}  // namespace frelta
