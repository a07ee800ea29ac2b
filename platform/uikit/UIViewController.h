#pragma once

#include <memory>
#include <string>

#include "uikit/UINavigationItem.h"
#include "uikit/UIView.h"

namespace frelta {

class UINavigationController;
class UIWindow;

/// One screen. Shared: the navigation stack and whoever refers to the screen hold the same object.
class UIViewController : public std::enable_shared_from_this<UIViewController> {
 public:
  UIViewController() = default;
  virtual ~UIViewController() = default;
  UIViewController(const UIViewController&) = delete;
  UIViewController& operator=(const UIViewController&) = delete;

  /// The screen's view, made on first use by loadView(), then viewDidLoad(). Owned by the
  /// controller until takeView() hands it to the view tree.
  UIView& view();
  bool isViewLoaded() const { return view_ != nullptr; }

  const std::string& title() const { return navigationItem_.title(); }
  void setTitle(std::string title) { navigationItem_.setTitle(std::move(title)); }
  UINavigationItem& navigationItem() { return navigationItem_; }
  /// The stack it is on; null when it is on none. Not owned.
  UINavigationController* navigationController() const { return navigationController_; }

  /// Shows the controller over the whole window until it is dismissed. Where a controller is
  /// presented already, only the front-most may present. Otherwise, and from a screen that is in no
  /// window, nothing happens but a line in the log.
  virtual void presentViewController(std::shared_ptr<UIViewController> controller, bool animated);
  /// Takes away what is presented over this controller; when nothing is, and it is itself
  /// presented, this one.
  void dismissViewControllerAnimated(bool animated);
  /// The controller right over this one, and the one under this one when it is presented: what the
  /// window shows at the bottom is its root. Null for none.
  UIViewController* presentedViewController();
  UIViewController* presentingViewController();

  virtual void viewDidLoad() {}
  virtual void viewWillAppear(bool) {}
  virtual void viewDidAppear(bool) {}
  virtual void viewWillDisappear(bool) {}
  virtual void viewDidDisappear(bool) {}
  /// After each layout of a view that loadView() of this class made.
  virtual void viewDidLayoutSubviews() {}

  /// For containers: hands the view to a superview, and back before the controller goes.
  std::unique_ptr<UIView> takeView();
  void returnView(std::unique_ptr<UIView> view) { ownedView_ = std::move(view); }
  /// For containers.
  void setNavigationController(UINavigationController* controller) {
    navigationController_ = controller;
  }

 protected:
  /// Makes the view; a plain one unless overridden.
  virtual std::unique_ptr<UIView> loadView();

 private:
  class PlainView;
  /// The window that the view is in, or null.
  UIWindow* window() const;

  std::unique_ptr<UIView> ownedView_;  // null while a superview owns it
  UIView* view_ = nullptr;
  UINavigationItem navigationItem_;
  UINavigationController* navigationController_ = nullptr;
};

}  // namespace frelta
