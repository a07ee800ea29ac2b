#include "uikit/UIButton.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UIButtonTest : public KitTest {};

TEST_F(UIButtonTest, HasNoTitleAtFirst) {
  UIButton button;

  EXPECT_EQ(button.title(), std::nullopt);
  EXPECT_EQ(button.buttonType(), UIButtonType::System);
  EXPECT_TRUE(button.isEnabled());
}

TEST_F(UIButtonTest, EachPropertyTellsOncePerChange) {
  UIButton button;
  CountingObserver observer(button);
  const auto setAll = [&button] {
    button.setTitle("");
    button.setTitleColor(UIColor::systemRedColor());
    button.setTitleFont(UIFont::systemFontOfSize(10));
  };

  setAll();
  setAll();

  EXPECT_EQ(observer.changes, 3);
  EXPECT_EQ(button.title(), "");
}

TEST_F(UIButtonTest, FitsItsTitleAndAFinger) {
  UIButton plain;
  UIButton back(UIButtonType::Back);
  plain.setTitleFont(UIFont::systemFontOfSize(10));
  back.setTitleFont(UIFont::systemFontOfSize(10));
  plain.setTitle("abcd");
  back.setTitle("abcd");

  EXPECT_EQ(plain.sizeThatFits({}), (CGSize{20, 44}));
  EXPECT_EQ(back.sizeThatFits({}), (CGSize{40, 44}));
}

TEST_F(UIButtonTest, IsReadByItsTitleUnlessALabelIsGiven) {
  UIButton button;
  button.setTitle("title");
  const UIAccessibility own = button.accessibility();

  button.setAccessibility({.label = "given"});

  EXPECT_EQ(own, (UIAccessibility{true, UIAccessibility::Role::Button, "title"}));
  EXPECT_EQ(button.accessibility().label, "given");
}

}  // namespace
}  // namespace frelta
