#include <QAccessible>
#include <QAccessibleActionInterface>

#include "tests/quick/WindowTest.h"
#include "uikit/UIAlertController.h"
#include "uikit/UIButton.h"
#include "uikit/UINavigationController.h"
#include "uikit/UISegmentedControl.h"
#include "uikit/UISlider.h"
#include "uikit/UITextField.h"

namespace frelta {
namespace {

class AccessibilityTest : public WindowTest {
 protected:
  /// Everything visible that assistive technology finds in the window, in order.
  std::vector<QAccessibleInterface*> elements() {
    std::vector<QAccessibleInterface*> found;
    collect(QAccessible::queryAccessibleInterface(window.get()), found);
    return found;
  }
  QAccessibleInterface* element(const QString& name) {
    for (QAccessibleInterface* found : elements()) {
      if (found->text(QAccessible::Name) == name) return found;
    }
    return nullptr;
  }
  std::vector<std::string> names() {
    std::vector<std::string> names;
    for (QAccessibleInterface* found : elements()) {
      const std::string name = found->text(QAccessible::Name).toStdString();
      if (!name.empty()) names.push_back(name);
    }
    return names;
  }
  void act(QAccessibleInterface* element, const QString& action) {
    element->actionInterface()->doAction(action);
    settle();
  }
  std::shared_ptr<TableScreen> screenOf(std::vector<TableRows::Section> sections) {
    return std::make_shared<TableScreen>(std::move(sections));
  }
  std::shared_ptr<TableScreen> showSwitches() {
    auto screen = screenOf({{"", 2, ""}});
    screen->rows.makeCell = [](std::string name) {
      return std::make_unique<SwitchRow>(std::move(name));
    };
    show(screen);
    return screen;
  }

 private:
  static void collect(QAccessibleInterface* parent, std::vector<QAccessibleInterface*>& found) {
    for (int i = 0; i < parent->childCount(); ++i) {
      QAccessibleInterface* child = parent->child(i);
      if (child->state().invisible) continue;
      found.push_back(child);
      collect(child, found);
    }
  }
};

TEST_F(AccessibilityTest, RowsAndTitlesAreToldOnceInVisualOrder) {
  auto screen = screenOf({{"Header", 2, "Footer"}, {"Other", 1, ""}});
  show(screen);

  EXPECT_THAT(names(), testing::ElementsAre("Header", "0/0", "0/1", "Footer", "Other", "1/0"));
  EXPECT_EQ(element(QStringLiteral("Header"))->role(), QAccessible::Heading);
  EXPECT_EQ(element(QStringLiteral("0/0"))->role(), QAccessible::Button);
  EXPECT_EQ(element(QStringLiteral("Footer"))->role(), QAccessible::StaticText);
}

TEST_F(AccessibilityTest, AReloadTellsTheNewTitlesOfRowsThatStayWhereTheyAre) {
  auto screen = screenOf({{"", 2, ""}});
  show(screen);

  screen->rows.fill = [](UITableViewCell& cell, IndexPath path) {
    cell.textLabel()->setText(path.row == 0 ? "new" : "newer");
  };
  screen->table().reloadData();
  settle();

  EXPECT_THAT(names(), testing::ElementsAre("new", "newer"));
}

TEST_F(AccessibilityTest, WhatComesBackAfterAnAlertElsewhereIsToldAgain) {
  auto screen = std::make_shared<PlainScreen>();
  auto* group = screen->view().addSubview(std::make_unique<UIView>(CGRect(0, 0, 200, 50)));
  auto* button =
      group->addSubview(std::make_unique<UIButton>(UIButtonType::System, CGRect(0, 0, 100, 44)));
  button->setTitle("Here");
  auto stack = std::make_shared<UINavigationController>();
  stack->pushViewController(screen, false);
  show(stack);
  ASSERT_TRUE(element(QStringLiteral("Here")));
  auto over = std::make_shared<PlainScreen>();
  stack->pushViewController(over, false);
  settle();

  auto alert = UIAlertController::alertControllerWithTitle("Alert", "");
  over->presentViewController(alert, false);
  settle();
  alert->dismissViewControllerAnimated(false);
  settle();
  stack->popViewControllerAnimated(false);
  settle();

  EXPECT_TRUE(element(QStringLiteral("Here")));
}

TEST_F(AccessibilityTest, TheOrderStaysTheVisualOneAfterScrolling) {
  auto screen = screenOf({{"", 100, ""}});
  show(screen);

  for (const double y : {2000.0, 500.0, 1700.0}) {
    screen->table().userDidScroll({0, y});
    settle();
  }
  const std::vector<IndexPath> rows = screen->table().indexPathsForVisibleRows();
  std::vector<std::string> expected;
  for (const IndexPath path : rows) expected.push_back(TableRows::title(path));

  EXPECT_EQ(names(), expected);
}

TEST_F(AccessibilityTest, ARowTellsItsValue) {
  auto screen = screenOf({{"", 1, ""}});
  screen->rows.makeCell = [](std::string name) {
    auto cell = std::make_unique<UITableViewCell>(UITableViewCellStyle::Value1, std::move(name));
    cell->detailTextLabel()->setText("value");
    cell->setSelectionStyle(UITableViewCellSelectionStyle::None);
    return cell;
  };

  show(screen);

  EXPECT_THAT(names(), testing::ElementsAre("0/0, value"));
  EXPECT_EQ(elements().back()->role(), QAccessible::StaticText);
}

TEST_F(AccessibilityTest, PressingARowSelectsItOnce) {
  auto screen = screenOf({{"", 3, ""}});
  show(screen);

  act(element(QStringLiteral("0/1")), QAccessibleActionInterface::pressAction());

  EXPECT_THAT(screen->rows.selections, testing::ElementsAre(IndexPath{0, 1}));
}

TEST_F(AccessibilityTest, ASwitchRowIsOneCheckBox) {
  auto screen = showSwitches();

  QAccessibleInterface* row = element(QStringLiteral("0/1"));

  EXPECT_THAT(names(), testing::ElementsAre("0/0", "0/1"));
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->role(), QAccessible::CheckBox);
  EXPECT_TRUE(row->state().checkable);
  EXPECT_FALSE(row->state().checked);
  EXPECT_TRUE(row->state().focusable);
}

TEST_F(AccessibilityTest, TogglingAndPressingASwitchRowTurnItOverOnceEach) {
  auto screen = showSwitches();
  const auto* row = static_cast<SwitchRow*>(screen->table().cellForRowAtIndexPath({0, 1}));

  act(element(QStringLiteral("0/1")), QAccessibleActionInterface::toggleAction());
  const bool afterToggle = row->control->isOn();
  const bool toldAfterToggle = element(QStringLiteral("0/1"))->state().checked;
  act(element(QStringLiteral("0/1")), QAccessibleActionInterface::pressAction());

  EXPECT_TRUE(afterToggle);
  EXPECT_TRUE(toldAfterToggle);
  EXPECT_FALSE(row->control->isOn());
  EXPECT_FALSE(element(QStringLiteral("0/1"))->state().checked);
  EXPECT_EQ(row->toggles, 2);
}

TEST_F(AccessibilityTest, ASwitchRowTurnedOverByMouseTellsSo) {
  auto screen = showSwitches();
  const auto* row = static_cast<SwitchRow*>(screen->table().cellForRowAtIndexPath({0, 0}));

  click(*row->control);

  EXPECT_TRUE(element(QStringLiteral("0/0"))->state().checked);
}

TEST_F(AccessibilityTest, ACheckmarkIsACheckedRow) {
  auto screen = screenOf({{"", 2, ""}});
  screen->rows.fill = [](UITableViewCell& cell, IndexPath path) {
    if (path.row == 1) cell.setAccessoryType(UITableViewCellAccessoryType::Checkmark);
  };

  show(screen);

  EXPECT_FALSE(element(QStringLiteral("0/0"))->state().checked);
  EXPECT_TRUE(element(QStringLiteral("0/1"))->state().checked);
}

TEST_F(AccessibilityTest, ControlsHaveRolesNamesAndActions) {
  UIView& root = showPlain();
  auto* button = root.addSubview(std::make_unique<UIButton>());
  auto* field = root.addSubview(std::make_unique<UITextField>());
  auto* slider = root.addSubview(std::make_unique<UISlider>());
  int presses = 0;
  button->setFrame({0, 0, 100, 44});
  button->setTitle("Press");
  button->addTarget(
      this, "press", [&presses](UIControl&) { ++presses; }, UIControlEventTouchUpInside);
  field->setFrame({0, 50, 200, 30});
  field->setAccessibility({.label = "Name"});
  slider->setFrame({0, 100, 200, 34});
  slider->setAccessibility({.label = "Size"});
  settle();

  act(element(QStringLiteral("Press")), QAccessibleActionInterface::pressAction());

  EXPECT_THAT(names(), testing::ElementsAre("Press", "Name", "Size"));
  EXPECT_EQ(presses, 1);
  EXPECT_EQ(element(QStringLiteral("Press"))->role(), QAccessible::Button);
  EXPECT_EQ(element(QStringLiteral("Name"))->role(), QAccessible::EditableText);
  EXPECT_EQ(element(QStringLiteral("Size"))->role(), QAccessible::Slider);
}

TEST_F(AccessibilityTest, ASliderTellsItsBoundsItsStepAndARoundedValueWithItsUnit) {
  UIView& root = showPlain();
  auto* slider = root.addSubview(std::make_unique<UISlider>());
  slider->setFrame({0, 100, 200, 34});
  slider->setRange(0, 360);
  slider->setKeyStep(1);
  slider->setValue(211.29411764705884);
  slider->setAccessibility({.isElement = true, .label = "Hue", .value = "211°"});
  settle();

  QAccessibleInterface* told = element(QStringLiteral("Hue"));

  ASSERT_NE(told, nullptr);
  ASSERT_NE(told->valueInterface(), nullptr);
  EXPECT_EQ(told->valueInterface()->minimumValue().toDouble(), 0);
  EXPECT_EQ(told->valueInterface()->maximumValue().toDouble(), 360);
  EXPECT_EQ(told->valueInterface()->minimumStepSize().toDouble(), 0.1);
  EXPECT_EQ(told->valueInterface()->currentValue().toDouble(), 211.3);
  EXPECT_EQ(told->text(QAccessible::Description), QStringLiteral("211°"));
  EXPECT_EQ(slider->value(), 211.29411764705884);
}

TEST_F(AccessibilityTest, SegmentsAreRadioButtonsOfAGroup) {
  UIView& root = showPlain();
  auto* control =
      root.addSubview(std::make_unique<UISegmentedControl>(std::vector<std::string>{"One", "Two"}));
  control->setFrame({0, 0, 200, 32});
  control->setAccessibility({.label = "Choice"});
  settle();

  act(element(QStringLiteral("Two")), QAccessibleActionInterface::pressAction());

  EXPECT_THAT(names(), testing::ElementsAre("Choice", "One", "Two"));
  EXPECT_EQ(element(QStringLiteral("Choice"))->role(), QAccessible::Grouping);
  EXPECT_EQ(element(QStringLiteral("Two"))->role(), QAccessible::RadioButton);
  EXPECT_TRUE(element(QStringLiteral("Two"))->state().checked);
  EXPECT_FALSE(element(QStringLiteral("One"))->state().checked);
  EXPECT_EQ(control->selectedSegmentIndex(), 1);
}

TEST_F(AccessibilityTest, HiddenViewsAreNotTold) {
  auto screen = screenOf({{"", 2, ""}});
  show(screen);

  screen->table().cellForRowAtIndexPath({0, 0})->setHidden(true);
  settle();

  EXPECT_THAT(names(), testing::ElementsAre("0/1"));
}

}  // namespace
}  // namespace frelta
