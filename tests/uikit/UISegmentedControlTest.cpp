#include "uikit/UISegmentedControl.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UISegmentedControlTest : public KitTest {
 protected:
  UISegmentedControlTest() { countEvents(control, UIControlEventValueChanged, events); }
  UISegmentedControl control{{"a", "four", "c"}};
  int events = 0;
};

TEST_F(UISegmentedControlTest, StartsWithNoneSelected) {
  EXPECT_EQ(control.selectedSegmentIndex(), UISegmentedControl::kNoSegment);
  EXPECT_THAT(control.titles(), testing::ElementsAre("a", "four", "c"));
}

TEST_F(UISegmentedControlTest, SettingSendsNoEventAndOutOfRangeIsNone) {
  CountingObserver observer(control);

  control.setSelectedSegmentIndex(2);
  const int last = control.selectedSegmentIndex();
  control.setSelectedSegmentIndex(3);
  const int beyond = control.selectedSegmentIndex();
  control.setSelectedSegmentIndex(-7);

  EXPECT_EQ(last, 2);
  EXPECT_EQ(beyond, UISegmentedControl::kNoSegment);
  EXPECT_EQ(events, 0);
  EXPECT_EQ(observer.changes, 2);
}

TEST_F(UISegmentedControlTest, ATapOnAnotherSegmentSendsOneEvent) {
  CountingObserver observer(control);

  control.selectSegment(1);
  control.selectSegment(1);

  EXPECT_EQ(control.selectedSegmentIndex(), 1);
  EXPECT_EQ(events, 1);
  EXPECT_EQ(observer.changes, 1);
}

TEST_F(UISegmentedControlTest, ATapOnADisabledOneDoesNothing) {
  control.setEnabled(false);

  control.selectSegment(1);

  EXPECT_EQ(control.selectedSegmentIndex(), UISegmentedControl::kNoSegment);
  EXPECT_EQ(events, 0);
}

TEST_F(UISegmentedControlTest, SegmentsAreAsWideAsTheWidest) {
  // "four" at 13 points is 26 wide; 12 more for its margins.
  EXPECT_EQ(control.sizeThatFits({}), (CGSize{3 * 38, 32}));
}

TEST_F(UISegmentedControlTest, IsAGroup) {
  EXPECT_EQ(control.accessibility().role, UIAccessibility::Role::Group);
}

}  // namespace
}  // namespace frelta
