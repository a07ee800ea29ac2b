#include "tests/quick/WindowTest.h"
#include "uikit/UISlider.h"

namespace frelta {
namespace {

class WindowLayoutTest : public WindowTest {
 protected:
  ~WindowLayoutTest() override { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }
};

TEST_F(WindowLayoutTest, ANarrowWindowIsTheColumn) {
  UIView& root = showPlain(500);

  EXPECT_EQ(placeOf(root), QRectF(0, 0, 500, 600));
}

TEST_F(WindowLayoutTest, AWideWindowHasTheColumnInItsMiddle) {
  UIView& root = showPlain(1000);

  EXPECT_EQ(placeOf(root), QRectF(180, 0, 640, 600));
  EXPECT_EQ(root.frame(), CGRect(0, 0, 640, 600));
}

TEST_F(WindowLayoutTest, TheColumnFollowsTheWindow) {
  UIView& root = showPlain(1000);

  window->resize(320, 480);
  settle();
  const QRectF narrow = placeOf(root);
  window->resize(801, 480);
  settle();

  EXPECT_EQ(narrow, QRectF(0, 0, 320, 480));
  EXPECT_EQ(placeOf(root), QRectF(80, 0, 640, 480));
}

TEST_F(WindowLayoutTest, AWideWindowScrollsBesideTheColumnToo) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 100, ""}});
  show(screen, 1000);

  QTest::mousePress(window.get(), Qt::LeftButton, Qt::NoModifier, {50, 400});
  for (int y = 390; y >= 200; y -= 20) QTest::mouseMove(window.get(), {50, y}, 10);
  QTest::mouseRelease(window.get(), Qt::LeftButton, Qt::NoModifier, {50, 200}, 10);
  settle();

  EXPECT_GT(screen->table().contentOffset().y, 100);
}

TEST_F(WindowLayoutTest, RightToLeftMirrorsEveryView) {
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  UIView& root = showPlain(400);
  UIView* outer = root.addSubview(std::make_unique<UIView>(CGRect(10, 20, 200, 100)));

  UIView* inner = outer->addSubview(std::make_unique<UIView>(CGRect(5, 6, 50, 40)));
  settle();

  EXPECT_EQ(placeOf(*outer), QRectF(190, 20, 200, 100));
  EXPECT_EQ(placeOf(*inner), QRectF(335, 26, 50, 40));
}

TEST_F(WindowLayoutTest, RightToLeftKeepsTheDistanceToTheEdgeWhenTheViewGrows) {
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  UIView& root = showPlain(400);
  UIView* outer = root.addSubview(std::make_unique<UIView>(CGRect(10, 20, 200, 100)));
  UIView* inner = outer->addSubview(std::make_unique<UIView>(CGRect(5, 6, 50, 40)));
  settle();

  outer->setFrame({10, 20, 300, 100});
  settle();

  EXPECT_EQ(placeOf(*inner).right(), placeOf(*outer).right() - 5);
}

TEST_F(WindowLayoutTest, RightToLeftTextStartsAtTheRight) {
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  UIView& root = showPlain(400);
  UILabel* natural = root.addSubview(std::make_unique<UILabel>(CGRect(0, 0, 100, 20)));
  UILabel* left = root.addSubview(std::make_unique<UILabel>(CGRect(0, 30, 100, 20)));

  left->setTextAlignment(NSTextAlignment::Left);
  settle();

  EXPECT_EQ(item(*natural)->property("horizontalAlignment").toInt(), Qt::AlignRight);
  EXPECT_EQ(item(*left)->property("horizontalAlignment").toInt(), Qt::AlignLeft);
}

TEST_F(WindowLayoutTest, RightToLeftControlsWorkFromTheRight) {
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  UIView& root = showPlain(400);
  UISwitch* toggle = root.addSubview(std::make_unique<UISwitch>());
  UISlider* slider = root.addSubview(std::make_unique<UISlider>());
  toggle->setOn(true);
  slider->setFrame({0, 50, 228, 34});
  settle();

  click(*slider, 64.0 / 228);

  EXPECT_EQ(item(*toggle)->property("visualPosition").toDouble(), 0);
  EXPECT_NEAR(slider->value(), 0.75, 0.01);
}

TEST_F(WindowLayoutTest, RightToLeftTapsFindTheirView) {
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  UIView& root = showPlain(400);
  UIView* view = root.addSubview(std::make_unique<UIView>(CGRect(10, 20, 50, 50)));
  int taps = 0;
  view->addGestureRecognizer(
      std::make_unique<UITapGestureRecognizer>([&taps](UIGestureRecognizer&) { ++taps; }));
  settle();

  click({35, 40});
  const int atTheLeft = taps;
  click({365, 40});

  EXPECT_EQ(atTheLeft, 0);
  EXPECT_EQ(taps, 1);
}

}  // namespace
}  // namespace frelta
