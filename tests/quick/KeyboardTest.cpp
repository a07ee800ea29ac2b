#include "tests/quick/WindowTest.h"
#include "uikit/UIAlertController.h"
#include "uikit/UISegmentedControl.h"
#include "uikit/UISlider.h"
#include "uikit/UITextField.h"
#include "uikit/UITextView.h"

namespace frelta {
namespace {

class KeyboardTest : public WindowTest {
 protected:
  void showRows(int rows) {
    screen =
        std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"Header", rows, "Footer"}});
    if (makeCell) screen->rows.makeCell = makeCell;
    show(screen);
  }
  /// The row whose item has the keyboard.
  std::optional<IndexPath> focusedRow() {
    for (UIView* view = focusedView(); view; view = view->superview()) {
      const auto* cell = dynamic_cast<UITableViewCell*>(view);
      if (cell) return screen->table().indexPathForCell(*cell);
    }
    return std::nullopt;
  }
  /// Puts one control into each row; the rows themselves take no keyboard.
  template <typename Control>
  void showControls(std::function<std::unique_ptr<Control>()> make) {
    class Row : public UITableViewCell {
     public:
      using UITableViewCell::UITableViewCell;
      UIAccessibility accessibility() const override { return {}; }
    };
    makeCell = [make](std::string name) {
      auto row = std::make_unique<Row>(UITableViewCellStyle::Default, std::move(name));
      row->contentView()->addSubview(make())->setFrame({16, 5, 300, 34});
      return row;
    };
    showRows(3);
  }
  template <typename Control>
  Control* control(int row) {
    return dynamic_cast<Control*>(
        screen->table().cellForRowAtIndexPath({0, row})->contentView()->subviews().back().get());
  }

  std::function<std::unique_ptr<UITableViewCell>(std::string)> makeCell;
  std::shared_ptr<TableScreen> screen;
};

TEST_F(KeyboardTest, TabAndTheArrowsGoFromRowToRowInVisualOrder) {
  showRows(100);
  screen->table().userDidScroll({0, 3000});
  settle();
  screen->table().userDidScroll({0, 0});
  settle();

  key(Qt::Key_Tab);
  const auto first = focusedRow();
  key(Qt::Key_Tab);
  const auto second = focusedRow();
  key(Qt::Key_Down);
  const auto third = focusedRow();
  key(Qt::Key_Up);
  const auto up = focusedRow();
  key(Qt::Key_Backtab, Qt::ShiftModifier);

  EXPECT_EQ(first, (IndexPath{0, 0}));
  EXPECT_EQ(second, (IndexPath{0, 1}));
  EXPECT_EQ(third, (IndexPath{0, 2}));
  EXPECT_EQ(up, (IndexPath{0, 1}));
  EXPECT_EQ(focusedRow(), (IndexPath{0, 0}));
}

TEST_F(KeyboardTest, TheRowWithTheKeyboardScrollsIntoView) {
  showRows(100);
  key(Qt::Key_Tab);

  for (int row = 1; row <= 40; ++row) {
    key(Qt::Key_Down);

    ASSERT_EQ(focusedRow(), (IndexPath{0, row}));
    const QRectF place = placeOf(*focusedView());
    ASSERT_GE(place.top(), 0) << row;
    ASSERT_LE(place.bottom(), 600) << row;
  }
  for (int row = 39; row >= 0; --row) {
    key(Qt::Key_Up);

    ASSERT_EQ(focusedRow(), (IndexPath{0, row}));
    ASSERT_GE(placeOf(*focusedView()).top(), 0) << row;
  }
}

TEST_F(KeyboardTest, ReturnAndSpaceSelectTheRowOnceEach) {
  showRows(5);
  key(Qt::Key_Tab);
  key(Qt::Key_Down);

  key(Qt::Key_Return);
  const std::size_t byReturn = screen->rows.selections.size();
  key(Qt::Key_Space);
  const std::size_t bySpace = screen->rows.selections.size();
  key(Qt::Key_Enter);

  EXPECT_EQ(byReturn, 1u);
  EXPECT_EQ(bySpace, 2u);
  EXPECT_THAT(screen->rows.selections,
              testing::ElementsAre(IndexPath{0, 1}, IndexPath{0, 1}, IndexPath{0, 1}));
}

TEST_F(KeyboardTest, SpaceAndReturnTurnTheRowsSwitchOverOnceEach) {
  makeCell = [](std::string name) { return std::make_unique<SwitchRow>(std::move(name)); };
  showRows(3);
  key(Qt::Key_Tab);
  const auto* row = static_cast<SwitchRow*>(focusedView());

  key(Qt::Key_Space);
  const bool afterSpace = row->control->isOn();
  key(Qt::Key_Return);

  EXPECT_TRUE(afterSpace);
  EXPECT_FALSE(row->control->isOn());
  EXPECT_EQ(row->toggles, 2);
  EXPECT_THAT(screen->rows.selections, testing::IsEmpty());
}

TEST_F(KeyboardTest, AKeyHeldDownActsOnce) {
  makeCell = [](std::string name) { return std::make_unique<SwitchRow>(std::move(name)); };
  showRows(3);
  key(Qt::Key_Tab);
  const auto* row = static_cast<SwitchRow*>(focusedView());

  QTest::keyPress(window.get(), Qt::Key_Return);
  for (int i = 0; i < 3; ++i) {
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QCoreApplication::sendEvent(window.get(), &repeat);
  }
  QTest::keyRelease(window.get(), Qt::Key_Return);

  EXPECT_EQ(row->toggles, 1);
}

TEST_F(KeyboardTest, RowsThatOnlyTellSomethingArePassedOver) {
  showRows(5);
  screen->table().cellForRowAtIndexPath({0, 1})->setSelectionStyle(
      UITableViewCellSelectionStyle::None);
  settle();

  key(Qt::Key_Tab);
  key(Qt::Key_Tab);

  EXPECT_EQ(focusedRow(), (IndexPath{0, 2}));
}

TEST_F(KeyboardTest, ARowIsNoStopOnceItOnlyTellsSomething) {
  showRows(3);
  key(Qt::Key_Tab);
  key(Qt::Key_Tab);
  screen->table().cellForRowAtIndexPath({0, 1})->setSelectionStyle(
      UITableViewCellSelectionStyle::None);
  settle();
  const auto still = focusedRow();

  key(Qt::Key_Tab);
  key(Qt::Key_Backtab, Qt::ShiftModifier);

  EXPECT_EQ(still, (IndexPath{0, 1}));
  EXPECT_EQ(focusedRow(), (IndexPath{0, 0}));
}

TEST_F(KeyboardTest, TheKeyboardStaysInItsRowOverAReload) {
  showRows(50);
  key(Qt::Key_Tab);
  for (int i = 0; i < 4; ++i) key(Qt::Key_Down);

  screen->table().reloadData();
  settle();

  EXPECT_EQ(focusedRow(), (IndexPath{0, 4}));
}

TEST_F(KeyboardTest, ArrowsSelectSegmentsAndTheTabKeyStopsAtEachControlOnce) {
  showControls<UISegmentedControl>([] {
    return std::make_unique<UISegmentedControl>(std::vector<std::string>{"One", "Two", "Three"});
  });
  control<UISegmentedControl>(0)->setSelectedSegmentIndex(1);
  settle();

  key(Qt::Key_Tab);
  UIView* first = focusedView();
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  const int right = control<UISegmentedControl>(0)->selectedSegmentIndex();
  UIView* still = focusedView();
  key(Qt::Key_Left);
  const int left = control<UISegmentedControl>(0)->selectedSegmentIndex();
  key(Qt::Key_Tab);
  UIView* second = focusedView();
  key(Qt::Key_Space);

  EXPECT_EQ(first, control<UISegmentedControl>(0));
  EXPECT_EQ(right, 2);
  EXPECT_EQ(still, first);
  EXPECT_EQ(left, 1);
  EXPECT_EQ(second, control<UISegmentedControl>(1));
  EXPECT_EQ(control<UISegmentedControl>(1)->selectedSegmentIndex(), 0);
}

TEST_F(KeyboardTest, ASegmentIsNoStopOnceAnotherIsSelected) {
  showControls<UISegmentedControl>([] {
    return std::make_unique<UISegmentedControl>(std::vector<std::string>{"One", "Two", "Three"});
  });
  control<UISegmentedControl>(0)->setSelectedSegmentIndex(1);
  settle();
  key(Qt::Key_Tab);
  control<UISegmentedControl>(0)->setSelectedSegmentIndex(0);
  settle();

  key(Qt::Key_Tab);
  const UIView* next = focusedView();
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  key(Qt::Key_Space);

  EXPECT_EQ(next, control<UISegmentedControl>(1));
  EXPECT_EQ(focusedView(), control<UISegmentedControl>(0));
  EXPECT_EQ(control<UISegmentedControl>(0)->selectedSegmentIndex(), 0);
}

TEST_F(KeyboardTest, ATextIsNoStopOnceAllOfItIsSeen) {
  UIView& root = showPlain();
  auto* text = root.addSubview(std::make_unique<UITextView>(CGRect{0, 0, 300, 40}));
  text->setText(std::string(1000, 'x'));
  auto* field = root.addSubview(std::make_unique<UITextField>(CGRect{0, 500, 300, 40}));
  settle();
  key(Qt::Key_Tab);
  const UIView* first = focusedView();
  text->setText("x");
  settle();

  key(Qt::Key_Tab);
  key(Qt::Key_Tab);

  EXPECT_EQ(first, text);
  EXPECT_EQ(focusedView(), field);
}

TEST_F(KeyboardTest, ArrowsMoveASliderAndCommitEachStep) {
  showControls<UISlider>([] { return std::make_unique<UISlider>(); });
  int events = 0;
  control<UISlider>(0)->addTarget(
      this, "count", [&events](UIControl&) { ++events; }, UIControlEventValueChanged);

  key(Qt::Key_Tab);
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  const double right = control<UISlider>(0)->value();
  key(Qt::Key_Left);

  EXPECT_NEAR(right, 0.2, 1e-9);
  EXPECT_NEAR(control<UISlider>(0)->value(), 0.1, 1e-9);
  EXPECT_EQ(events, 3);
}

TEST_F(KeyboardTest, PageKeysMoveASliderFarAndHomeAndEndToItsBounds) {
  showControls<UISlider>([] { return std::make_unique<UISlider>(); });
  UISlider& slider = *control<UISlider>(0);
  slider.setRange(0, 360);
  slider.setKeyStep(1);
  settle();
  std::vector<double> values;

  key(Qt::Key_Tab);
  for (const auto pressed : {Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_End,
                             Qt::Key_PageUp, Qt::Key_Home, Qt::Key_PageDown}) {
    key(pressed);
    values.push_back(slider.value());
  }

  EXPECT_THAT(values, testing::ElementsAre(10, 20, 10, 360, 360, 0, 0));
}

TEST_F(KeyboardTest, UpAndDownLeaveTheControlOfARow) {
  showControls<UISlider>([] { return std::make_unique<UISlider>(); });

  key(Qt::Key_Tab);
  key(Qt::Key_Down);
  UIView* down = focusedView();
  key(Qt::Key_Up);

  EXPECT_EQ(down, control<UISlider>(1));
  EXPECT_EQ(focusedView(), control<UISlider>(0));
}

TEST_F(KeyboardTest, TabEditsFieldsOneAfterTheOther) {
  showControls<UITextField>([] { return std::make_unique<UITextField>(); });

  key(Qt::Key_Tab);
  const bool first = control<UITextField>(0)->isFirstResponder();
  type("ab");
  key(Qt::Key_Tab);
  settle();

  EXPECT_TRUE(first);
  EXPECT_EQ(control<UITextField>(0)->text(), "ab");
  EXPECT_FALSE(control<UITextField>(0)->isFirstResponder());
  EXPECT_TRUE(control<UITextField>(1)->isFirstResponder());
}

TEST_F(KeyboardTest, ReturnEndsTheEditingOfAField) {
  showControls<UITextField>([] { return std::make_unique<UITextField>(); });
  int ends = 0;
  control<UITextField>(0)->addTarget(
      this, "end", [&ends](UIControl&) { ++ends; }, UIControlEventEditingDidEnd);

  key(Qt::Key_Tab);
  key(Qt::Key_Return);

  EXPECT_FALSE(control<UITextField>(0)->isFirstResponder());
  EXPECT_EQ(ends, 1);
}

TEST_F(KeyboardTest, TheWaysBackCallTheHandlerOnceEach) {
  showRows(3);
  int backs = 0;
  window->setBackHandler([&backs] { ++backs; });

  key(Qt::Key_Escape);
  key(Qt::Key_Left, Qt::AltModifier);
  key(Qt::Key_Back);
  QTest::mouseClick(window.get(), Qt::BackButton, {}, {100, 100});
  key(Qt::Key_Left);
  QTest::mouseClick(window.get(), Qt::RightButton, {}, {100, 100});

  EXPECT_EQ(backs, 4);
}

TEST_F(KeyboardTest, TheMousesBackButtonLeavesAnAlertAlone) {
  auto page = std::make_shared<PlainScreen>();
  show(page);
  int backs = 0;
  window->setBackHandler([&backs] { ++backs; });
  auto alert = UIAlertController::alertControllerWithTitle("Question", "");
  alert->addAction(UIAlertAction::actionWithTitle("Answer", UIAlertActionStyle::Default));
  page->presentViewController(alert, false);
  settle();

  QTest::mouseClick(window.get(), Qt::BackButton, {}, {100, 100});

  EXPECT_EQ(backs, 0);
  EXPECT_EQ(page->presentedViewController(), alert.get());
}

}  // namespace
}  // namespace frelta
