#include "tests/selector/SelectorTest.h"
#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class ToggleButton : public SelectorTest {
 protected:
  FreltaToggleButton button{{0, 0, 76, 31}};
};

const UIColor kBlue = UIColor::colorWithRed(0.0, 0.478, 1.0, 1.0);
const UIColor kOrange = UIColor::colorWithRed(1.0, 0.5843137502670288, 0.0, 1.0);
const UIColor kRed = UIColor::colorWithRed(1.0, 0.23137255012989044, 0.1882352977991104, 1.0);

TEST_F(ToggleButton, IsAPillWithoutATitleUntilItsStateIsFirstSet) {
  EXPECT_EQ(button.title(), std::nullopt);
  EXPECT_EQ(button.enabledState(), 0);
  EXPECT_EQ(button.cornerRadius(), 15.5);
  EXPECT_EQ(button.titleColor(), kBlue);
  EXPECT_EQ(button.titleFont(), UIFont::boldSystemFontOfSize(16.0));
  EXPECT_EQ(button.backgroundColor(), UIColor::secondarySystemFillColor());

  button.setEnabledState(0);

  EXPECT_EQ(button.title(), "Enable");
}

TEST_F(ToggleButton, BeforeVersion13IsWhiteWhileItIsOff) {
  platform.system.version = {12, 5, 0};
  FreltaToggleButton::setDisabledColor(std::nullopt);

  const FreltaToggleButton old({0, 0, 76, 31});

  EXPECT_EQ(old.backgroundColor(), UIColor::whiteColor());
}

TEST_F(ToggleButton, ShowsNonePartialAndAllInThreeSchemes) {
  button.setEnabledState(2);
  EXPECT_EQ(button.title(), "Disable");
  EXPECT_EQ(button.titleColor(), UIColor::whiteColor());
  EXPECT_EQ(button.backgroundColor(), kRed);

  button.setEnabledState(1);
  EXPECT_EQ(button.title(), "Disable");
  EXPECT_EQ(button.titleColor(), UIColor::whiteColor());
  EXPECT_EQ(button.backgroundColor(), kOrange);

  button.setEnabledState(0);
  EXPECT_EQ(button.title(), "Enable");
  EXPECT_EQ(button.titleColor(), kBlue);
  EXPECT_EQ(button.backgroundColor(), UIColor::secondarySystemFillColor());
}

TEST_F(ToggleButton, KeepsAnUnknownStateAndLooksAsBefore) {
  button.setEnabledState(1, false);

  button.setEnabledState(7);

  EXPECT_EQ(button.enabledState(), 7);
  EXPECT_EQ(button.title(), "Disable");
  EXPECT_EQ(button.backgroundColor(), kOrange);
}

TEST_F(ToggleButton, FadesOverAQuarterSecond) {
  button.setEnabledState(1, false);

  button.setEnabledState(2);

  EXPECT_EQ(button.presentation().backgroundColor, kOrange);
  platform.mainQueue.advance(0.125);
  const auto halfWay = button.presentation().backgroundColor->getRed().value();
  EXPECT_NEAR(halfWay.green, (149 + 59) / 2.0 / 255, 1e-6);
  EXPECT_NEAR(halfWay.blue, 24.0 / 255, 1e-6);
  platform.mainQueue.advance(0.124);
  EXPECT_TRUE(button.isAnimating());
  platform.mainQueue.advance(0.001);
  EXPECT_FALSE(button.isAnimating());
  EXPECT_EQ(button.presentation().backgroundColor, kRed);
}

TEST_F(ToggleButton, WithoutAnimationChangesAtOnce) {
  button.setEnabledState(2, false);

  EXPECT_FALSE(button.isAnimating());
  EXPECT_EQ(button.presentation().backgroundColor, kRed);
}

TEST_F(ToggleButton, TakesANewDisabledColourAtItsNextChangeToOff) {
  const UIColor grey = UIColor::colorWithRed(0.2, 0.2, 0.2, 1.0);

  FreltaToggleButton::setDisabledColor(grey);

  EXPECT_EQ(button.backgroundColor(), UIColor::secondarySystemFillColor());
  button.setEnabledState(0, false);
  EXPECT_EQ(button.backgroundColor(), grey);
  EXPECT_EQ(FreltaToggleButton({0, 0, 76, 31}).backgroundColor(), grey);
}

TEST_F(ToggleButton, TakesANewDisabledColourWhenItIsToldWhileItIsOff) {
  const UIColor grey = UIColor::colorWithRed(0.2, 0.2, 0.2, 1.0);
  button.setEnabledState(0, false);
  FreltaToggleButton on({0, 0, 76, 31});
  on.setEnabledState(2, false);

  FreltaToggleButton::setDisabledColor(grey);
  button.updateDisabledColor();
  on.updateDisabledColor();

  EXPECT_EQ(button.backgroundColor(), grey);
  EXPECT_FALSE(button.isAnimating());
  EXPECT_EQ(on.backgroundColor(), kRed);
}

TEST_F(ToggleButton, ATapLeavesTheStateAlone) {
  button.setEnabledState(0);

  tap(button);

  EXPECT_EQ(button.enabledState(), 0);
}

TEST_F(ToggleButton, IsCalledAfterWhatItDoesToWhichStyle) {
  EXPECT_EQ(button.accessibility().label, "");
  button.setStyleName("Aurora");
  button.setEnabledState(0);
  EXPECT_EQ(button.accessibility().label, "Enable Aurora");

  button.setEnabledState(2);

  EXPECT_EQ(button.accessibility().label, "Disable Aurora");
  EXPECT_EQ(button.title(), "Disable");
}

TEST_F(ToggleButton, TellsWhoWatchesItOnceOfEachOtherName) {
  const CountingObserver observer(button);

  button.setStyleName("Aurora");
  button.setStyleName("Aurora");

  EXPECT_EQ(observer.changes, 1);
}

TEST(EditButton, IsAnOrangePill) {
  const FreltaEditButton button({0, 0, 76, 31});

  EXPECT_EQ(button.title(), "Edit");
  EXPECT_EQ(button.titleColor(), UIColor::whiteColor());
  EXPECT_EQ(button.titleFont(), UIFont::boldSystemFontOfSize(16.0));
  EXPECT_EQ(button.backgroundColor(), kOrange);
  EXPECT_EQ(button.cornerRadius(), 15.5);
}

}  // namespace
}  // namespace frelta
