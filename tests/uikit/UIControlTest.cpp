#include "uikit/UIControl.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

constexpr UIControlEvents kTouch = UIControlEventTouchUpInside;
constexpr UIControlEvents kValue = UIControlEventValueChanged;

class UIControlTest : public KitTest {
 protected:
  UIControl::Handler noting(int number) {
    return [this, number](UIControl&) { ran.push_back(number); };
  }

  UIControl control;
  std::vector<int> ran;
};

TEST_F(UIControlTest, HandlersOfTheEventRunInTheOrderAdded) {
  control.addTarget(this, "a", noting(1), kTouch);
  control.addTarget(this, "b", noting(2), kValue);
  control.addTarget(this, "c", noting(3), kTouch | kValue);

  control.sendActionsForControlEvents(kTouch);

  EXPECT_THAT(ran, testing::ElementsAre(1, 3));
}

TEST_F(UIControlTest, AddingTheSamePairAgainAddsItsEvents) {
  control.addTarget(this, "a", noting(1), kTouch);
  control.addTarget(this, "a", noting(2), kValue);

  control.sendActionsForControlEvents(kTouch);
  control.sendActionsForControlEvents(kValue);

  EXPECT_THAT(ran, testing::ElementsAre(1, 1));
}

TEST_F(UIControlTest, TheSameActionOfAnotherTargetIsAnotherWiring) {
  control.addTarget(this, "a", noting(1), kTouch);
  control.addTarget(&control, "a", noting(2), kTouch);

  control.sendActionsForControlEvents(kTouch);

  EXPECT_THAT(ran, testing::ElementsAre(1, 2));
}

TEST_F(UIControlTest, WiringIsTakenBackEventByEvent) {
  control.addTarget(this, "a", noting(1), kTouch | kValue);

  control.removeTarget(this, "a", kTouch);
  control.removeTarget(this, "unknown", kValue);
  control.sendActionsForControlEvents(kTouch);
  control.sendActionsForControlEvents(kValue);
  control.removeTarget(this, "a", kValue);
  control.sendActionsForControlEvents(kValue);

  EXPECT_THAT(ran, testing::ElementsAre(1));
}

TEST_F(UIControlTest, AHandlerMayTakeItsOwnWiringBack) {
  control.addTarget(
      this, "once",
      [this](UIControl& sender) {
        sender.removeTarget(this, "once", kTouch);
        ran.push_back(1);
      },
      kTouch);
  control.addTarget(this, "always", noting(2), kTouch);

  control.sendActionsForControlEvents(kTouch);
  control.sendActionsForControlEvents(kTouch);

  EXPECT_THAT(ran, testing::ElementsAre(1, 2, 2));
}

TEST_F(UIControlTest, WiringTakenBackByAnEarlierHandlerIsNotCalled) {
  control.addTarget(
      this, "first", [this](UIControl& sender) { sender.removeTarget(&ran, "second", kTouch); },
      kTouch);
  control.addTarget(&ran, "second", noting(2), kTouch);

  control.sendActionsForControlEvents(kTouch);

  EXPECT_THAT(ran, testing::IsEmpty());
}

TEST_F(UIControlTest, WiringAddedByAHandlerWaitsForTheNextEvent) {
  control.addTarget(
      this, "first",
      [this](UIControl& sender) { sender.addTarget(&ran, "late", noting(2), kTouch); }, kTouch);

  control.sendActionsForControlEvents(kTouch);
  const std::vector<int> first = ran;
  control.sendActionsForControlEvents(kTouch);

  EXPECT_THAT(first, testing::IsEmpty());
  EXPECT_THAT(ran, testing::ElementsAre(2));
}

TEST_F(UIControlTest, AHandlerMayTakeTheControlDownAndTheRestAreSpared) {
  auto doomed = std::make_unique<UIControl>();
  UIControl* raw = doomed.get();
  std::string after;
  raw->addTarget(
      this, "destroy",
      [&doomed, &after, text = std::string("what the handler holds is still there")](UIControl&) {
        doomed.reset();
        after = text;
      },
      kTouch);
  raw->addTarget(this, "later", noting(2), kTouch);

  raw->sendActionsForControlEvents(kTouch);

  EXPECT_EQ(after, "what the handler holds is still there");
  EXPECT_THAT(ran, testing::IsEmpty());
}

TEST_F(UIControlTest, EnablingIsTold) {
  CountingObserver observer(control);

  control.setEnabled(false);
  control.setEnabled(false);

  EXPECT_FALSE(control.isEnabled());
  EXPECT_EQ(observer.changes, 1);
}

}  // namespace
}  // namespace frelta
