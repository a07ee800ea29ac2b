#include "tests/quick/WindowTest.h"
#include "uikit/UIButton.h"
#include "uikit/UISegmentedControl.h"
#include "uikit/UISlider.h"
#include "uikit/UITextField.h"

namespace frelta {
namespace {

class PointerTest : public WindowTest {
 protected:
  template <typename View>
  View* add(UIView& parent, std::unique_ptr<View> view, CGRect frame) {
    view->setFrame(frame);
    View* raw = parent.addSubview(std::move(view));
    settle();
    return raw;
  }
  void countEvents(UIControl& control, unsigned events) {
    control.addTarget(
        this, "count", [this](UIControl&) { ++count; }, events);
  }
  /// Presses, moves in steps as a finger does, and lets go.
  void drag(QPoint from, QPoint to) {
    QTest::mousePress(window.get(), Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 10; ++step) {
      QTest::mouseMove(window.get(), from + (to - from) * step / 10, 10);
    }
    QTest::mouseRelease(window.get(), Qt::LeftButton, Qt::NoModifier, to, 10);
    settle();
  }

  int count = 0;
};

TEST_F(PointerTest, AClickTurnsASwitchOverOnce) {
  UIView& root = showPlain();
  auto* view = add(root, std::make_unique<UISwitch>(), {10, 20, 51, 31});
  countEvents(*view, UIControlEventValueChanged);

  click(*view);
  const bool first = view->isOn();
  click(*view);

  EXPECT_TRUE(first);
  EXPECT_FALSE(view->isOn());
  EXPECT_EQ(count, 2);
}

TEST_F(PointerTest, ASwitchThatItsHandlerTurnsBackShowsItself) {
  UIView& root = showPlain();
  auto* view = add(root, std::make_unique<UISwitch>(), {10, 20, 51, 31});
  view->addTarget(
      this, "refuse", [view](UIControl&) { view->setOn(false); }, UIControlEventValueChanged);

  click(*view);

  EXPECT_FALSE(view->isOn());
  EXPECT_FALSE(item(*view)->property("checked").toBool());
}

TEST_F(PointerTest, WhatCanBePressedShowsThatThePointerIsOverIt) {
  UIView& root = showPlain();
  auto* control = add(root, std::make_unique<UISwitch>(), {10, 20, 51, 31});
  auto* button = add(root, std::make_unique<UIButton>(), {10, 100, 100, 40});
  const auto hovered = [this](const UIView& view) {
    return item(view)->property("hovered").toBool();
  };

  QTest::mouseMove(window.get(), {300, 500});
  settle();

  for (const UIView* view : std::initializer_list<const UIView*>{control, button}) {
    const bool before = hovered(*view);
    QTest::mouseMove(window.get(), pointIn(*view));
    settle();
    const bool over = hovered(*view);
    QTest::mouseMove(window.get(), {300, 500});
    settle();

    EXPECT_FALSE(before);
    EXPECT_TRUE(over) << item(*view)->metaObject()->className();
    EXPECT_FALSE(hovered(*view));
  }
}

TEST_F(PointerTest, ARowThatCanBeChosenShowsThatThePointerIsOverIt) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 3, ""}});
  show(screen);
  const UITableViewCell& row = *screen->table().cellForRowAtIndexPath({0, 1});
  const QColor before = window->grabWindow().pixelColor(300, 80);

  QTest::mouseMove(window.get(), pointIn(row));
  settle();

  EXPECT_TRUE(item(row)->property("hovered").toBool());
  EXPECT_NE(window->grabWindow().pixelColor(300, 80), before);
}

TEST_F(PointerTest, AFingerHoversOverNothing) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 3, ""}});
  show(screen);
  const UITableViewCell& row = *screen->table().cellForRowAtIndexPath({0, 1});
  static QPointingDevice* const finger = QTest::createTouchDevice();

  QTest::touchEvent(window.get(), finger).press(0, pointIn(row));
  QTest::touchEvent(window.get(), finger).release(0, pointIn(row));
  settle();

  EXPECT_FALSE(item(row)->property("hovered").toBool());
}

TEST_F(PointerTest, ASwitchShowsAtOnceWhatNoHandSets) {
  UIView& root = showPlain();
  auto on = std::make_unique<UISwitch>();
  on->setOn(true);

  auto* view = add(root, std::move(on), {10, 20, 51, 31});
  const double first = item(*view)->property("shownPosition").toDouble();
  view->setOn(false);
  settle();

  EXPECT_EQ(first, 1);
  EXPECT_EQ(item(*view)->property("shownPosition").toDouble(), 0);
}

TEST_F(PointerTest, DraggingTheKnobTurnsASwitchOverOnce) {
  UIView& root = showPlain();
  auto* view = add(root, std::make_unique<UISwitch>(), {10, 20, 51, 31});
  countEvents(*view, UIControlEventValueChanged);

  drag(pointIn(*view, 0.2), pointIn(*view, 0.9));

  EXPECT_TRUE(view->isOn());
  EXPECT_EQ(count, 1);
}

TEST_F(PointerTest, AClickOnADisabledControlDoesNothing) {
  UIView& root = showPlain();
  auto* view = add(root, std::make_unique<UISwitch>(), {10, 20, 51, 31});
  countEvents(*view, UIControlEventValueChanged);

  view->setEnabled(false);
  settle();
  click(*view);

  EXPECT_EQ(count, 0);
}

TEST_F(PointerTest, AClickPressesAButtonOnce) {
  UIView& root = showPlain();
  auto* button = add(root, std::make_unique<UIButton>(), {10, 20, 100, 44});
  countEvents(*button, UIControlEventTouchUpInside);

  click(*button);

  EXPECT_EQ(count, 1);
}

TEST_F(PointerTest, AClickOnASegmentSelectsItOnce) {
  UIView& root = showPlain();
  auto* control = add(
      root, std::make_unique<UISegmentedControl>(std::vector<std::string>{"One", "Two", "Three"}),
      {10, 20, 300, 32});
  countEvents(*control, UIControlEventValueChanged);

  click(*control, 0.9);
  click(*control, 0.9);

  EXPECT_EQ(control->selectedSegmentIndex(), 2);
  EXPECT_EQ(count, 1);
}

TEST_F(PointerTest, DraggingASliderSendsOneEventAtItsEnd) {
  UIView& root = showPlain();
  auto* slider = add(root, std::make_unique<UISlider>(), {10, 20, 228, 34});
  countEvents(*slider, UIControlEventValueChanged);

  drag(pointIn(*slider, 14.0 / 228), pointIn(*slider, 114.0 / 228));

  EXPECT_NEAR(slider->value(), 0.5, 0.01);
  EXPECT_EQ(count, 1);
}

TEST_F(PointerTest, AClickOnARowSelectsItOnce) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 5, ""}});
  show(screen);

  click(*screen->table().cellForRowAtIndexPath({0, 3}));

  EXPECT_THAT(screen->rows.selections, testing::ElementsAre(IndexPath{0, 3}));
}

TEST_F(PointerTest, AClickOnARowsSwitchIsTheSwitchsAlone) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 5, ""}});
  screen->rows.makeCell = [](std::string name) {
    auto row = std::make_unique<SwitchRow>(std::move(name));
    row->setSelectionStyle(UITableViewCellSelectionStyle::Default);
    return row;
  };
  show(screen);
  auto* row = static_cast<SwitchRow*>(screen->table().cellForRowAtIndexPath({0, 2}));

  click(*row->control);
  const std::vector<IndexPath> selections = screen->rows.selections;
  click(*row, 0.3);

  EXPECT_EQ(row->toggles, 1);
  EXPECT_TRUE(row->control->isOn());
  EXPECT_THAT(selections, testing::IsEmpty());
  EXPECT_THAT(screen->rows.selections, testing::ElementsAre(IndexPath{0, 2}));
}

TEST_F(PointerTest, AClickOnARowThatIsPartlySeenSelectsIt) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 50, ""}});
  show(screen);
  // 14 points above the first row; the last that shows has 36 of its 44.
  const UITableViewCell* row = screen->table().cellForRowAtIndexPath({0, 13});
  const QRectF place = placeOf(*row);

  click({200, static_cast<int>(place.y()) + 5});

  EXPECT_GT(place.bottom(), 600);
  EXPECT_THAT(screen->rows.selections, testing::ElementsAre(IndexPath{0, 13}));
}

TEST_F(PointerTest, ADragScrollsAndPressesNothing) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 50, ""}});
  screen->rows.makeCell = [](std::string name) {
    auto row = std::make_unique<SwitchRow>(std::move(name));
    row->setSelectionStyle(UITableViewCellSelectionStyle::Default);
    return row;
  };
  show(screen);

  drag({200, 400}, {200, 200});

  EXPECT_GT(screen->table().contentOffset().y, 100);
  EXPECT_THAT(screen->rows.selections, testing::IsEmpty());
}

TEST_F(PointerTest, TypingIntoAFieldEditsIt) {
  UIView& root = showPlain();
  auto* field = add(root, std::make_unique<UITextField>(), {10, 20, 200, 30});
  countEvents(*field, UIControlEventEditingChanged);
  int begins = 0;
  field->addTarget(
      &begins, "begin", [&begins](UIControl&) { ++begins; }, UIControlEventEditingDidBegin);

  click(*field);
  type("abc");
  settle();

  EXPECT_EQ(begins, 1);
  EXPECT_TRUE(field->isFirstResponder());
  EXPECT_EQ(field->text(), "abc");
  EXPECT_EQ(count, 3);
}

TEST_F(PointerTest, AFieldWhoseHandlerCorrectsTheTextShowsTheCorrection) {
  UIView& root = showPlain();
  auto* field = add(root, std::make_unique<UITextField>(), {10, 20, 200, 30});
  field->addTarget(
      this, "correct", [field](UIControl&) { field->setText("x"); }, UIControlEventEditingChanged);

  click(*field);
  type("ab");
  settle();

  EXPECT_EQ(field->text(), "x");
  EXPECT_EQ(item(*field)->property("text").toString(), QStringLiteral("x"));
}

TEST_F(PointerTest, TheClearButtonEmptiesTheFieldThatIsEdited) {
  UIView& root = showPlain();
  auto* field = add(root, std::make_unique<UITextField>(), {10, 20, 200, 30});
  field->setText("text");
  field->setClearButtonMode(UITextFieldViewMode::WhileEditing);
  countEvents(*field, UIControlEventEditingChanged);

  click(*field, 0.95);
  const std::string whileIdle = field->text();
  click(*field, 0.95);

  EXPECT_EQ(whileIdle, "text");
  EXPECT_EQ(field->text(), "");
  EXPECT_EQ(item(*field)->property("text").toString(), QString());
  EXPECT_TRUE(field->isFirstResponder());
  EXPECT_EQ(count, 1);
}

TEST_F(PointerTest, EditingStartedAndEndedInCodeMovesTheKeyboard) {
  UIView& root = showPlain();
  auto* field = add(root, std::make_unique<UITextField>(), {10, 20, 200, 30});

  field->becomeFirstResponder();
  settle();
  UIView* during = focusedView();
  root.endEditing(true);
  settle();

  EXPECT_EQ(during, field);
  EXPECT_NE(focusedView(), field);
}

/// A table with a field in its first row, watched by a tap recogniser.
class TapTest : public PointerTest {
 protected:
  void SetUp() override {
    screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 3, ""}});
    screen->table().addGestureRecognizer(
        std::make_unique<UITapGestureRecognizer>([this](UIGestureRecognizer&) {
          ++taps;
          screen->table().endEditing(true);
        }));
    screen->rows.fill = [this](UITableViewCell& cell, IndexPath path) {
      if (path.row != 0 || field) return;
      field = cell.contentView()->addSubview(std::make_unique<UITextField>());
      field->setFrame({16, 0, 100, 44});
    };
    show(screen);
  }

  std::shared_ptr<TableScreen> screen;
  UITextField* field = nullptr;
  int taps = 0;
};

TEST_F(TapTest, ATapBesideTheFieldEndsItsEditing) {
  click(*field);
  const bool edited = field->isFirstResponder();
  const int before = taps;

  click({200, 500});

  EXPECT_TRUE(edited);
  EXPECT_EQ(taps, before + 1);
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TapTest, ATapOnARowIsRecognisedAndSelectsTheRow) {
  click(*screen->table().cellForRowAtIndexPath({0, 2}));

  EXPECT_EQ(taps, 1);
  EXPECT_THAT(screen->rows.selections, testing::ElementsAre(IndexPath{0, 2}));
}

TEST_F(TapTest, ATapIntoTheFieldBeingEditedIsTheFieldsAlone) {
  click(*field);
  const int before = taps;

  click(*field, 0.4);

  EXPECT_EQ(taps, before);
  EXPECT_TRUE(field->isFirstResponder());
}

TEST_F(TapTest, ADragIsNoTap) {
  drag({200, 500}, {200, 400});
  drag({200, 500}, {200, 500});

  EXPECT_EQ(taps, 1) << "the drag that moves nowhere";
}

TEST_F(TapTest, OtherButtonsAreNoTaps) {
  QTest::mouseClick(window.get(), Qt::RightButton, Qt::NoModifier, {200, 500});
  settle();

  EXPECT_EQ(taps, 0);
}

TEST_F(TapTest, ATouchTapsOnce) {
  static QPointingDevice* const device = QTest::createTouchDevice();

  QTest::touchEvent(window.get(), device).press(0, {200, 500}, window.get());
  QTest::touchEvent(window.get(), device).release(0, {200, 500}, window.get());
  settle();

  EXPECT_EQ(taps, 1);
}

}  // namespace
}  // namespace frelta
