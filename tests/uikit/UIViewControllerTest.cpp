#include "uikit/UIViewController.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class LoadCounter : public UIViewController {
 public:
  void viewDidLoad() override { ++loads; }
  int loads = 0;
};

class UIViewControllerTest : public KitTest {};

TEST_F(UIViewControllerTest, TheViewIsMadeOnFirstUse) {
  LoadCounter controller;
  const bool before = controller.isViewLoaded();

  UIView& view = controller.view();
  UIView& again = controller.view();

  EXPECT_FALSE(before);
  EXPECT_TRUE(controller.isViewLoaded());
  EXPECT_EQ(&view, &again);
  EXPECT_EQ(controller.loads, 1);
}

TEST_F(UIViewControllerTest, TheViewCanBeTakenAndHandedBack) {
  LoadCounter controller;
  UIView superview;

  UIView* view = superview.addSubview(controller.takeView());
  const bool isSame = view == &controller.view();
  controller.returnView(view->removeFromSuperview());

  EXPECT_TRUE(isSame);
  EXPECT_EQ(controller.takeView().get(), view);
  EXPECT_EQ(controller.loads, 1);
}

TEST_F(UIViewControllerTest, TheTitleIsTheNavigationItems) {
  UIViewController controller;
  int changes = 0;
  controller.navigationItem().setObserver([&changes] { ++changes; });

  controller.setTitle("title");
  controller.navigationItem().setHidesBackButton(true);
  controller.navigationItem().setObserver(nullptr);
  controller.setTitle("other");

  EXPECT_EQ(controller.title(), "other");
  EXPECT_EQ(changes, 2);
}

}  // namespace
}  // namespace frelta
