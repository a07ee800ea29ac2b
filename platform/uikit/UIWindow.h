#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "uikit/UIView.h"
#include "uikit/UIViewController.h"

namespace frelta {

/// The root of a view tree: shows one controller's view over its whole size, and those presented
/// over it.
class UIWindow : public UIView {
 public:
  ~UIWindow() override;
  /// Shows the controller's view; the one before gets its view back, as does all that was
  /// presented.
  void setRootViewController(std::shared_ptr<UIViewController> controller);
  UIViewController* rootViewController() const { return root_.get(); }
  /// The front-most last.
  std::span<const std::shared_ptr<UIViewController>> presentedViewControllers() const {
    return presented_;
  }

  /// The window that the view is in; null for none.
  static UIWindow* windowOf(UIView& view);

  // For controllers, whose operations say what these do.
  bool present(std::shared_ptr<UIViewController> controller, const UIViewController& presenter,
               bool animated);
  void dismissFrom(const UIViewController& controller, bool animated);
  /// Takes away this one alone, if it is presented.
  void takeAway(const UIViewController& controller, bool animated);
  UIViewController* presentedOver(const UIViewController& controller) const;
  UIViewController* presenterOf(const UIViewController& controller) const;

  void layoutSubviews() override;

 private:
  /// How many are presented up to the controller and with it; 0 for one that is not presented.
  std::size_t levelOf(const UIViewController& controller) const;

  std::shared_ptr<UIViewController> root_;
  std::vector<std::shared_ptr<UIViewController>> presented_;
};

}  // namespace frelta
