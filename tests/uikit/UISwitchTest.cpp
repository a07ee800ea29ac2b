#include "uikit/UISwitch.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UISwitchTest : public KitTest {
 protected:
  UISwitchTest() { countEvents(view, UIControlEventValueChanged, events); }
  UISwitch view;
  int events = 0;
};

TEST_F(UISwitchTest, StartsOffAtItsFixedSize) {
  EXPECT_FALSE(view.isOn());
  EXPECT_EQ(view.frame(), CGRect(0, 0, 51, 31));
  EXPECT_EQ(view.sizeThatFits({500, 500}), (CGSize{51, 31}));
}

TEST_F(UISwitchTest, SettingItSendsNoEvent) {
  CountingObserver observer(view);

  view.setOn(true);
  view.setOn(true);

  EXPECT_TRUE(view.isOn());
  EXPECT_EQ(events, 0);
  EXPECT_EQ(observer.changes, 1);
}

TEST_F(UISwitchTest, ATapTurnsItOverAndSendsOneEvent) {
  CountingObserver observer(view);

  view.toggle();

  EXPECT_TRUE(view.isOn());
  EXPECT_EQ(events, 1);
  EXPECT_EQ(observer.changes, 1);
}

TEST_F(UISwitchTest, ATapOnADisabledOneDoesNothing) {
  view.setEnabled(false);

  view.toggle();

  EXPECT_FALSE(view.isOn());
  EXPECT_EQ(events, 0);
}

TEST_F(UISwitchTest, SaysHowItStands) {
  view.setOn(true);

  const UIAccessibility accessibility = view.accessibility();

  EXPECT_TRUE(accessibility.isElement);
  EXPECT_EQ(accessibility.role, UIAccessibility::Role::Switch);
  EXPECT_TRUE(accessibility.on);
}

}  // namespace
}  // namespace frelta
