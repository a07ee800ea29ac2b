#include "uikit/UIViewController.h"

#include <utility>

#include "foundation/Log.h"
#include "uikit/UIWindow.h"

namespace frelta {

/// Tells the controller, which outlives it or takes it back before it goes.
class UIViewController::PlainView : public UIView {
 public:
  explicit PlainView(UIViewController& controller) : controller_(controller) {}
  void layoutSubviews() override { controller_.viewDidLayoutSubviews(); }

 private:
  UIViewController& controller_;
};

UIView& UIViewController::view() {
  if (!view_) {
    ownedView_ = loadView();
    view_ = ownedView_.get();
    viewDidLoad();
  }
  return *view_;
}

std::unique_ptr<UIView> UIViewController::loadView() {
  return std::make_unique<PlainView>(*this);
}

UIWindow* UIViewController::window() const {
  return view_ ? UIWindow::windowOf(*view_) : nullptr;
}

void UIViewController::presentViewController(std::shared_ptr<UIViewController> controller,
                                             bool animated) {
  UIWindow* shownIn = window();
  if (!shownIn || !shownIn->present(std::move(controller), *this, animated)) {
    freltaLog(std::string("presentViewController refused: ") +
              (shownIn ? "something else is presented" : "the screen is in no window"));
  }
}

void UIViewController::dismissViewControllerAnimated(bool animated) {
  if (UIWindow* shownIn = window()) shownIn->dismissFrom(*this, animated);
}

UIViewController* UIViewController::presentedViewController() {
  UIWindow* shownIn = window();
  return shownIn ? shownIn->presentedOver(*this) : nullptr;
}

UIViewController* UIViewController::presentingViewController() {
  UIWindow* shownIn = window();
  return shownIn ? shownIn->presenterOf(*this) : nullptr;
}

std::unique_ptr<UIView> UIViewController::takeView() {
  view();
  return std::move(ownedView_);
}

}  // namespace frelta
