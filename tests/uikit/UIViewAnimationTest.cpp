#include <stdexcept>

#include "fake/FakePlatform.h"
#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UIViewAnimationTest : public KitTest {
 protected:
  ~UIViewAnimationTest() override { UIView::setAnimationsEnabled(true); }

  /// Fades the view to that alpha and records how it ended.
  void fade(UIView& view, double alpha, double seconds) {
    UIView::animateWithDuration(
        seconds, [&] { view.setAlpha(alpha); },
        [this](bool finished) { ends.push_back(finished); });
  }
  void advance(double seconds) { platform.mainQueue.advance(seconds); }

  FakePlatform platform;
  std::vector<bool> ends;
};

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(UIViewAnimationTest, TheModelChangesAtOnceAndWhatIsShownComesAfterIt) {
  UIView view({0, 0, 100, 50});
  fade(view, 0, 0.2);

  const double model = view.alpha();
  const double start = view.presentation().alpha;
  advance(0.05);
  const double quarter = view.presentation().alpha;
  advance(0.05);
  const double middle = view.presentation().alpha;
  advance(0.1);

  EXPECT_EQ(model, 0);
  EXPECT_EQ(start, 1);
  // A quarter of the time is less of the way: the curve starts slowly.
  EXPECT_NEAR(quarter, 1 - 0.129161, 1e-5);
  EXPECT_DOUBLE_EQ(middle, 0.5);
  EXPECT_EQ(view.presentation().alpha, 0);
  EXPECT_FALSE(view.isAnimating());
}

TEST_F(UIViewAnimationTest, FramesCentersAndColoursAreAnimated) {
  UIView view({0, 0, 100, 50});
  UIView other({0, 0, 10, 10});
  view.setBackgroundColor(UIColor::colorWithRed(1, 0, 0, 1));

  UIView::animateWithDuration(0.2, [&] {
    view.setFrame({40, 20, 200, 50});
    view.setBackgroundColor(UIColor::colorWithRed(0, 0, 1, 1));
    other.setCenter({25, 5});
  });
  advance(0.1);

  EXPECT_EQ(view.presentation().frame, CGRect(20, 10, 150, 50));
  EXPECT_EQ(view.presentation().backgroundColor, UIColor::colorWithRed(0.5, 0, 0.5, 1));
  EXPECT_EQ(view.frame(), CGRect(40, 20, 200, 50));
  EXPECT_EQ(other.presentation().frame, CGRect(10, 0, 10, 10));
}

TEST_F(UIViewAnimationTest, AColourThatComesOrGoesFades) {
  UIView view;

  UIView::animateWithDuration(0.2, [&] { view.setBackgroundColor(UIColor::whiteColor()); });
  advance(0.1);
  const auto coming = view.presentation().backgroundColor;
  advance(0.1);
  UIView::animateWithDuration(0.2, [&] { view.setBackgroundColor(std::nullopt); });
  advance(0.1);
  const auto going = view.presentation().backgroundColor;
  advance(0.1);

  EXPECT_EQ(coming, UIColor::colorWithRed(1, 1, 1, 0.5));
  ASSERT_TRUE(going && going->getRed());
  EXPECT_EQ(going->getRed()->red, 1);
  EXPECT_NEAR(going->getRed()->alpha, 0.5, 1e-9);
  EXPECT_EQ(view.presentation().backgroundColor, std::nullopt);
}

TEST_F(UIViewAnimationTest, SubviewsThatResizeWithTheirSuperviewAreAnimatedWithIt) {
  UIView view({0, 0, 100, 50});
  UIView* inner = view.addSubview(std::make_unique<UIView>(CGRect(0, 0, 100, 50)));
  inner->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);

  UIView::animateWithDuration(0.2, [&] { view.setFrame({0, 0, 300, 50}); });
  advance(0.1);

  EXPECT_EQ(inner->frame().size.width, 300);
  EXPECT_EQ(inner->presentation().frame.size.width, 200);
}

TEST_F(UIViewAnimationTest, ItCompletesOnceWhenItsTimeIsOver) {
  UIView view;
  fade(view, 0, 0.25);

  advance(0.24);
  const auto before = ends;
  advance(0.01);
  advance(10);

  EXPECT_THAT(before, IsEmpty());
  EXPECT_THAT(ends, ElementsAre(true));
}

TEST_F(UIViewAnimationTest, WhatChangesNothingCompletesAfterItsTime) {
  UIView view;
  fade(view, 1, 0.2);

  advance(0.1);
  const auto before = ends;
  advance(0.1);

  EXPECT_THAT(before, IsEmpty());
  EXPECT_THAT(ends, ElementsAre(true));
}

TEST_F(UIViewAnimationTest, WithoutALengthItIsShownAndCompletedAtOnce) {
  UIView view;

  fade(view, 0.5, 0);
  fade(view, 0.25, -1);

  EXPECT_EQ(view.presentation().alpha, 0.25);
  EXPECT_THAT(ends, ElementsAre(true, true));
  EXPECT_EQ(platform.mainQueue.pending(), 0u);
}

TEST_F(UIViewAnimationTest, AnotherAnimationTakesAPropertyOverFromWhatIsShown) {
  UIView view;
  fade(view, 0, 0.2);
  advance(0.1);

  fade(view, 1, 0.2);
  const double start = view.presentation().alpha;
  advance(0.1);
  const double middle = view.presentation().alpha;
  const auto whileRunning = ends;
  advance(0.1);

  EXPECT_DOUBLE_EQ(start, 0.5);
  EXPECT_DOUBLE_EQ(middle, 0.75);
  EXPECT_THAT(whileRunning, ElementsAre(false));
  EXPECT_THAT(ends, ElementsAre(false, true));
}

TEST_F(UIViewAnimationTest, AnInterruptedAnimationIsToldOnTheQueuesNextTurn) {
  UIView view;
  fade(view, 0, 0.2);

  view.setAlpha(0.75);
  const auto atOnce = ends;
  platform.mainQueue.runPending();

  EXPECT_THAT(atOnce, IsEmpty());
  EXPECT_THAT(ends, ElementsAre(false));
  EXPECT_EQ(view.presentation().alpha, 0.75);
}

TEST_F(UIViewAnimationTest, WhatWasNotTakenOverRunsOn) {
  UIView first;
  UIView second;
  UIView::animateWithDuration(
      0.2,
      [&] {
        first.setAlpha(0);
        second.setAlpha(0);
      },
      [this](bool finished) { ends.push_back(finished); });
  advance(0.1);

  first.setAlpha(1);
  platform.mainQueue.runPending();

  EXPECT_EQ(first.presentation().alpha, 1);
  EXPECT_DOUBLE_EQ(second.presentation().alpha, 0.5);
  EXPECT_THAT(ends, ElementsAre(false));
  advance(1);
  EXPECT_THAT(ends, ElementsAre(false));
}

TEST_F(UIViewAnimationTest, SettingWhatIsSetAlreadyLeavesAnAnimationRunning) {
  UIView view;
  fade(view, 0, 0.2);
  advance(0.1);

  view.setAlpha(0);

  EXPECT_DOUBLE_EQ(view.presentation().alpha, 0.5);
  advance(0.1);
  EXPECT_THAT(ends, ElementsAre(true));
}

TEST_F(UIViewAnimationTest, AWayThereAndBackInOneTurnMovesNothing) {
  UIView view({0, 0, 100, 50});
  fade(view, 0, 0.2);

  fade(view, 1, 0.2);

  EXPECT_FALSE(view.isAnimating());
  EXPECT_EQ(view.presentation().alpha, 1);
  advance(0.1);
  EXPECT_EQ(view.presentation().alpha, 1);
  advance(0.1);
  EXPECT_THAT(ends, ElementsAre(false, true));
}

TEST_F(UIViewAnimationTest, WhatIsStoppedIsThereAndToldSo) {
  UIView root({0, 0, 100, 50});
  auto* view = root.addSubview(std::make_unique<UIView>(CGRect(0, 0, 10, 10)));
  fade(*view, 0, 0.2);
  advance(0.1);

  root.stopAnimations();

  EXPECT_EQ(view->presentation().alpha, 0);
  advance(0);
  EXPECT_THAT(ends, ElementsAre(false));
}

TEST_F(UIViewAnimationTest, AChangeAfterTheEndInterruptsNothing) {
  UIView view;
  fade(view, 0, 0.2);
  advance(0.2);

  view.setAlpha(1);
  advance(1);

  EXPECT_THAT(ends, ElementsAre(true));
}

TEST_F(UIViewAnimationTest, AViewThatLeavesOrGoesInterruptsItsAnimation) {
  UIView root;
  UIView* leaving = root.addSubview(std::make_unique<UIView>());
  UIView* below = leaving->addSubview(std::make_unique<UIView>());
  auto going = std::make_unique<UIView>();
  fade(*below, 0, 0.2);
  fade(*going, 0, 0.3);

  const auto kept = leaving->removeFromSuperview();
  going.reset();
  platform.mainQueue.runPending();

  EXPECT_EQ(below->presentation().alpha, 0);
  EXPECT_THAT(ends, ElementsAre(false, false));
}

TEST_F(UIViewAnimationTest, ACompletionMayStartTheNextAnimation) {
  UIView view;
  UIView::animateWithDuration(
      0.2, [&] { view.setAlpha(0); }, [&](bool) { fade(view, 1, 0.2); });

  advance(0.3);

  EXPECT_NEAR(view.presentation().alpha, 0.5, 1e-9);
  advance(0.1);
  EXPECT_THAT(ends, ElementsAre(true));
}

TEST_F(UIViewAnimationTest, ACompletionMayTakeItsViewDown) {
  auto view = std::make_unique<UIView>();
  const std::weak_ptr<const void> lifetime = view->lifetime();
  UIView::animateWithDuration(
      0.2, [&] { view->setAlpha(0); }, [&](bool) { view.reset(); });

  advance(0.2);

  EXPECT_EQ(view, nullptr);
  EXPECT_TRUE(lifetime.expired());
}

TEST_F(UIViewAnimationTest, CompletionsComeInTheOrderOfTheirEnds) {
  UIView first;
  UIView second;
  UIView third;
  std::vector<int> order;
  const auto note = [&](int which) { return [&, which](bool) { order.push_back(which); }; };
  UIView::animateWithDuration(
      0.3, [&] { first.setAlpha(0); }, note(1));
  UIView::animateWithDuration(
      0.2, [&] { second.setAlpha(0); }, note(2));
  UIView::animateWithDuration(
      0.2, [&] { third.setAlpha(0); }, note(3));

  advance(1);

  EXPECT_THAT(order, ElementsAre(2, 3, 1));
}

TEST_F(UIViewAnimationTest, ABlockWithinABlockHasItsOwnLength) {
  UIView outer;
  UIView inner;
  UIView after;
  UIView::animateWithDuration(0.4, [&] {
    outer.setAlpha(0);
    UIView::animateWithDuration(0.2, [&] { inner.setAlpha(0); });
    UIView::performWithoutAnimation([&] { inner.setFrame({0, 0, 9, 9}); });
    after.setAlpha(0);
  });

  advance(0.2);

  EXPECT_DOUBLE_EQ(outer.presentation().alpha, 0.5);
  EXPECT_EQ(inner.presentation().alpha, 0);
  EXPECT_EQ(inner.presentation().frame, CGRect(0, 0, 9, 9));
  EXPECT_DOUBLE_EQ(after.presentation().alpha, 0.5);
}

TEST_F(UIViewAnimationTest, WhileAnimationsAreOffNoneHasALength) {
  UIView view;
  UIView::setAnimationsEnabled(false);

  fade(view, 0, 0.2);

  EXPECT_EQ(view.presentation().alpha, 0);
  EXPECT_THAT(ends, ElementsAre(true));
  EXPECT_FALSE(UIView::areAnimationsEnabled());
}

TEST_F(UIViewAnimationTest, ABlockThatThrowsLeavesNoBlockBehind) {
  UIView view;
  UIView other;

  EXPECT_THROW(UIView::animateWithDuration(0.2,
                                           [&] {
                                             view.setAlpha(0);
                                             throw std::runtime_error("no");
                                           }),
               std::runtime_error);
  other.setAlpha(0);
  advance(1);

  EXPECT_EQ(other.presentation().alpha, 0);
  EXPECT_EQ(view.presentation().alpha, 0);
  EXPECT_THAT(ends, IsEmpty());
}

TEST_F(UIViewAnimationTest, TheObserverIsToldOnceForAChange) {
  UIView view;
  CountingObserver observer(view);

  fade(view, 0, 0.2);
  advance(1);

  EXPECT_EQ(observer.changes, 1);
}

}  // namespace
}  // namespace frelta
