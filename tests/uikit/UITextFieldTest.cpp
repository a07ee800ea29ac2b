#include "uikit/UITextField.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UITextFieldTest : public KitTest {
 protected:
  UITextFieldTest() {
    countEvents(field, UIControlEventEditingDidBegin, begins);
    countEvents(field, UIControlEventEditingChanged, edits);
    countEvents(field, UIControlEventEditingDidEnd, ends);
  }
  UITextField field;
  int begins = 0;
  int edits = 0;
  int ends = 0;
};

TEST_F(UITextFieldTest, EachPropertyTellsOncePerChange) {
  CountingObserver observer(field);
  const auto setAll = [this] {
    field.setText("text");
    field.setPlaceholder("placeholder");
    field.setFont(UIFont::systemFontOfSize(10));
    field.setTextAlignment(NSTextAlignment::Right);
    field.setClearButtonMode(UITextFieldViewMode::WhileEditing);
  };

  setAll();
  setAll();

  EXPECT_EQ(observer.changes, 5);
  EXPECT_EQ(edits, 0);
}

TEST_F(UITextFieldTest, TypingSendsOneEventPerChange) {
  field.userDidEdit("a");
  field.userDidEdit("a");
  field.userDidEdit("ab");

  EXPECT_EQ(field.text(), "ab");
  EXPECT_EQ(edits, 2);
}

TEST_F(UITextFieldTest, EditingBeginsAndEndsOnce) {
  CountingObserver observer(field);

  EXPECT_TRUE(field.becomeFirstResponder());
  EXPECT_TRUE(field.becomeFirstResponder());
  const bool editing = field.isFirstResponder();
  EXPECT_TRUE(field.resignFirstResponder());
  EXPECT_TRUE(field.resignFirstResponder());

  EXPECT_TRUE(editing);
  EXPECT_FALSE(field.isFirstResponder());
  EXPECT_EQ(begins, 1);
  EXPECT_EQ(ends, 1);
  EXPECT_EQ(observer.changes, 2);
}

TEST_F(UITextFieldTest, ADisabledOneIsNotEdited) {
  field.setEnabled(false);

  const bool became = field.becomeFirstResponder();
  field.userDidEdit("a");

  EXPECT_FALSE(became);
  EXPECT_EQ(field.text(), "");
  EXPECT_EQ(begins + edits + ends, 0);
}

TEST_F(UITextFieldTest, TakesTheWidthAndOneLine) {
  field.setFont(UIFont::systemFontOfSize(10));

  EXPECT_EQ(field.sizeThatFits({123, 456}), (CGSize{123, 12}));
}

TEST_F(UITextFieldTest, AHandlerMayTakeTheFieldDownAtTheEnd) {
  auto doomed = std::make_unique<UITextField>();
  UITextField* raw = doomed.get();
  raw->becomeFirstResponder();
  raw->addTarget(
      this, "destroy", [&doomed](UIControl&) { doomed.reset(); }, UIControlEventEditingDidEnd);

  const bool ended = raw->resignFirstResponder();

  EXPECT_TRUE(ended);
  EXPECT_EQ(doomed, nullptr);
}

}  // namespace
}  // namespace frelta
