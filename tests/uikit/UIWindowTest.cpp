#include "uikit/UIWindow.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UIWindowTest : public KitTest {};

TEST_F(UIWindowTest, TheRootsViewFillsTheWindow) {
  UIWindow window;
  auto controller = std::make_shared<UIViewController>();
  window.setRootViewController(controller);

  window.setFrame({0, 0, 300, 400});
  window.layoutIfNeeded();

  EXPECT_EQ(window.rootViewController(), controller.get());
  EXPECT_EQ(controller->view().frame(), CGRect(0, 0, 300, 400));
}

TEST_F(UIWindowTest, TheRootBeforeGetsItsViewBack) {
  UIWindow window;
  auto first = std::make_shared<UIViewController>();
  auto second = std::make_shared<UIViewController>();
  window.setRootViewController(first);
  const UIView* view = &first->view();

  window.setRootViewController(second);

  EXPECT_EQ(window.subviews().size(), 1u);
  EXPECT_EQ(first->takeView().get(), view);
}

TEST_F(UIWindowTest, TheRootOutlivesTheWindowWithItsView) {
  auto controller = std::make_shared<UIViewController>();
  {
    UIWindow window;
    window.setRootViewController(controller);
  }

  EXPECT_EQ(controller->view().superview(), nullptr);
  EXPECT_NE(controller->takeView(), nullptr);
}

}  // namespace
}  // namespace frelta
