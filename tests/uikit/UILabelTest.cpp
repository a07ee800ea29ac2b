#include "uikit/UILabel.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UILabelTest : public KitTest {};

TEST_F(UILabelTest, StartsEmptyOnOneLine) {
  UILabel label;

  const UIAccessibility accessibility = label.accessibility();

  EXPECT_EQ(label.text(), "");
  EXPECT_EQ(label.numberOfLines(), 1);
  EXPECT_EQ(label.textAlignment(), NSTextAlignment::Natural);
  EXPECT_EQ(label.font().pointSize, 17);
  EXPECT_EQ(label.textColor(), UIColor::labelColor());
  EXPECT_FALSE(accessibility.isElement);
}

TEST_F(UILabelTest, EachPropertyTellsOncePerChange) {
  UILabel label;
  CountingObserver observer(label);
  const auto setAll = [&label] {
    label.setText("text");
    label.setFont(UIFont::boldSystemFontOfSize(20));
    label.setTextColor(UIColor::grayColor());
    label.setTextAlignment(NSTextAlignment::Center);
    label.setNumberOfLines(2);
    label.setAdjustsFontSizeToFitWidth(true);
    label.setMinimumScaleFactor(0.5);
  };

  setAll();
  setAll();

  EXPECT_EQ(observer.changes, 7);
}

TEST_F(UILabelTest, OneLineIgnoresTheWidthAndSeveralBreakAtIt) {
  UILabel label;
  label.setFont(UIFont::systemFontOfSize(10));
  label.setText("four word s of");

  const CGSize single = label.sizeThatFits({25, 0});
  label.setNumberOfLines(0);
  const CGSize wrapped = label.sizeThatFits({25, 0});
  label.setNumberOfLines(2);
  const CGSize limited = label.sizeThatFits({25, 0});

  EXPECT_EQ(single, (CGSize{70, 12}));
  EXPECT_EQ(wrapped, (CGSize{20, 36}));
  EXPECT_EQ(limited, (CGSize{20, 24}));
}

TEST_F(UILabelTest, EmptyTextNeedsNoRoom) {
  UILabel label;

  const CGSize size = label.sizeThatFits({100, 100});

  EXPECT_EQ(size, CGSize());
}

TEST_F(UILabelTest, ReadsItsTextUnlessTheLabelIsGiven) {
  UILabel label;
  label.setText("text");
  const UIAccessibility own = label.accessibility();

  label.setAccessibility({.role = UIAccessibility::Role::Heading, .label = "given"});

  EXPECT_EQ(own, (UIAccessibility{true, UIAccessibility::Role::StaticText, "text"}));
  EXPECT_EQ(label.accessibility(),
            (UIAccessibility{true, UIAccessibility::Role::Heading, "given"}));
}

}  // namespace
}  // namespace frelta
