#include "uikit/UISlider.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UISliderTest : public KitTest {
 protected:
  UISliderTest() { countEvents(slider, UIControlEventValueChanged, events); }
  UISlider slider;
  int events = 0;
};

TEST_F(UISliderTest, StartsAtNothingBetweenNothingAndOne) {
  EXPECT_EQ(slider.value(), 0);
  EXPECT_EQ(slider.minimumValue(), 0);
  EXPECT_EQ(slider.maximumValue(), 1);
}

TEST_F(UISliderTest, ValuesStayWithinTheRangeAndSendNoEvent) {
  slider.setRange(10, 20);
  const double raised = slider.value();

  slider.setValue(25);
  const double lowered = slider.value();
  slider.setRange(0, 15);

  EXPECT_EQ(raised, 10);
  EXPECT_EQ(lowered, 20);
  EXPECT_EQ(slider.value(), 15);
  EXPECT_EQ(events, 0);
}

TEST_F(UISliderTest, AMaximumBelowTheMinimumCountsAsTheMinimum) {
  slider.setRange(5, 3);

  EXPECT_EQ(slider.maximumValue(), 5);
  EXPECT_EQ(slider.value(), 5);
}

TEST_F(UISliderTest, ANewRangeIsToldOnce) {
  CountingObserver observer(slider);

  slider.setRange(2, 3);
  slider.setRange(2, 3);

  EXPECT_EQ(observer.changes, 1);
}

TEST_F(UISliderTest, ADragSendsOneEventAtItsEnd) {
  CountingObserver observer(slider);

  slider.dragToValue(0.2);
  slider.dragToValue(0.4);
  const int during = events;
  slider.commitValue();
  slider.commitValue();

  EXPECT_EQ(during, 0);
  EXPECT_EQ(events, 1);
  EXPECT_EQ(observer.changes, 2);
}

TEST_F(UISliderTest, ADragThatComesBackSendsNone) {
  slider.setValue(0.5);

  slider.dragToValue(0.9);
  slider.dragToValue(0.5);
  slider.commitValue();

  EXPECT_EQ(events, 0);
}

TEST_F(UISliderTest, AContinuousOneSendsAnEventForEachStepOfADrag) {
  slider.setContinuous(true);

  slider.dragToValue(0.2);
  slider.dragToValue(0.3);
  slider.commitValue();
  slider.setValue(0.4);

  EXPECT_EQ(events, 2);
}

TEST_F(UISliderTest, TellsOfANewTrackAndKeyStepOnce) {
  const CountingObserver observer(slider);

  for (int i = 0; i < 2; ++i) {
    slider.setTrackColors({UIColor::whiteColor(), UIColor::grayColor()});
    slider.setKeyStep(2);
  }

  EXPECT_EQ(observer.changes, 2);
  EXPECT_EQ(events, 0);
}

TEST_F(UISliderTest, ADisabledOneSendsNone) {
  slider.setEnabled(false);

  slider.dragToValue(0.9);
  slider.commitValue();

  EXPECT_EQ(events, 0);
}

}  // namespace
}  // namespace frelta
