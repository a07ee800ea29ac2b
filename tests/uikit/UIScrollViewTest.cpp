#include "uikit/UIScrollView.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class ScrollCounter : public UIScrollView {
 public:
  using UIScrollView::UIScrollView;
  int scrolls = 0;

 protected:
  void scrollViewDidScroll() override { ++scrolls; }
};

class UIScrollViewTest : public KitTest {
 protected:
  UIScrollViewTest() { view.setContentSize({100, 1000}); }
  ScrollCounter view{CGRect(0, 0, 100, 200)};
};

TEST_F(UIScrollViewTest, TheOffsetStaysWithinTheContent) {
  view.setContentOffset({0, 5000});
  const CGPoint end = view.contentOffset();
  view.setContentOffset({30, -10});

  EXPECT_EQ(end, (CGPoint{0, 800}));
  EXPECT_EQ(view.contentOffset(), (CGPoint{0, 0}));
}

TEST_F(UIScrollViewTest, EachMoveIsToldOnce) {
  CountingObserver observer(view);

  view.userDidScroll({0, 100});
  view.userDidScroll({0, 100});

  EXPECT_EQ(view.scrolls, 1);
  EXPECT_EQ(observer.changes, 1);
  EXPECT_EQ(view.bounds(), CGRect(0, 100, 100, 200));
}

TEST_F(UIScrollViewTest, ContentThatShrinksTakesTheOffsetAlong) {
  view.setContentOffset({0, 800});

  view.setContentSize({100, 500});
  const double shorter = view.contentOffset().y;
  view.setContentSize({100, 50});

  EXPECT_EQ(shorter, 300);
  EXPECT_EQ(view.contentOffset().y, 0);
}

TEST_F(UIScrollViewTest, AFrameThatGrowsTakesTheOffsetAlong) {
  view.setContentOffset({0, 800});

  view.setFrame({0, 0, 100, 300});

  EXPECT_EQ(view.contentOffset().y, 700);
}

TEST_F(UIScrollViewTest, ARectangleIsScrolledToByAsLittleAsNeeded) {
  view.setContentOffset({0, 300});

  view.scrollRectToVisible({0, 350, 100, 50});
  const double visibleAlready = view.contentOffset().y;
  view.scrollRectToVisible({0, 480, 100, 50});
  const double below = view.contentOffset().y;
  view.scrollRectToVisible({0, 100, 100, 50});
  const double above = view.contentOffset().y;
  view.scrollRectToVisible({0, 400, 100, 600});

  EXPECT_EQ(visibleAlready, 300);
  EXPECT_EQ(below, 330);
  EXPECT_EQ(above, 100);
  EXPECT_EQ(view.contentOffset().y, 400) << "the top of what is taller than the view";
}

TEST_F(UIScrollViewTest, PointsAndHitsGoByTheOffset) {
  UIView* child = view.addSubview(std::make_unique<UIView>(CGRect(10, 500, 20, 20)));
  UIView root({0, 0, 300, 300});
  auto moved = std::make_unique<ScrollCounter>(CGRect(40, 30, 100, 200));
  ScrollCounter* inner = root.addSubview(std::move(moved));
  inner->setContentSize({100, 1000});
  UIView* leaf = inner->addSubview(std::make_unique<UIView>(CGRect(0, 410, 20, 20)));

  view.setContentOffset({0, 450});
  inner->setContentOffset({0, 400});

  EXPECT_EQ(view.hitTest({15, 505}), child);
  EXPECT_EQ(view.hitTest({15, 55}), nullptr) << "that part of the content is not shown";
  EXPECT_EQ(root.hitTest({45, 45}), leaf);
}

}  // namespace
}  // namespace frelta
