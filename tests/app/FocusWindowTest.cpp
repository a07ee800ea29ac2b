#include <QAccessible>

#include "tests/app/EveryPage.h"
#include "tests/app/SelectorWindow.h"
#include "uikit/UIAlertControllerView.h"

namespace frelta {
namespace {

/// The application's window by keys alone.
class FocusWindow : public testing::Test {
 protected:
  void open(const Dictionary& settings = {}) {
    window.platform.put("/Library/Frelta/Presets/Work.plist", "<plist><dict/></plist>");
    ASSERT_NO_FATAL_FAILURE(window.putSettings(settings));
    ASSERT_NO_FATAL_FAILURE(window.open());
    quick().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&quick()));
    settle();
  }
  QuickWindow& quick() { return *window.application->window(); }
  void settle() {
    window.settle();
    // A frame, and what comes after it.
    quick().grabWindow();
    window.settle();
  }
  void key(Qt::Key key) {
    QTest::keyClick(&quick(), key);
    settle();
  }
  /// The identifier of the row that has the keyboard; empty when none has.
  std::string row() {
    for (const QQuickItem* item = quick().activeFocusItem(); item; item = item->parentItem()) {
      if (const auto* node = item->property("node").value<ViewNode*>()) {
        if (const auto* cell = dynamic_cast<const UITableViewCell*>(node->view()))
          return cell->accessibilityIdentifier();
      }
    }
    return {};
  }
  bool hasRing() {
    const QQuickItem* item = quick().activeFocusItem();
    return item && item->property("visualFocus").toBool();
  }
  /// What assistive technology is told of whatever has the keyboard.
  std::string told() {
    QAccessibleInterface* focused =
        QAccessible::queryAccessibleInterface(quick().activeFocusItem());
    return focused ? focused->text(QAccessible::Name).toStdString() : "nothing";
  }
  void goTo(const std::string& identifier) {
    const UITableViewCell* cell = window.driver->findRow(identifier);
    ASSERT_NE(cell, nullptr) << identifier;
    quick().itemFor(*cell)->forceActiveFocus(Qt::TabFocusReason);
    settle();
    ASSERT_EQ(row(), identifier);
  }
  /// The titles of the alert's buttons that stand out.
  std::string boldButtons() {
    std::string titles;
    auto& view = static_cast<UIAlertControllerView&>(window.driver->alert()->view());
    for (const UIButton* button : view.buttons()) {
      if (button->titleFont().weight != UIFont::Weight::Regular) titles += *button->title();
    }
    return titles;
  }

  SelectorWindow window;
};

TEST_F(FocusWindow, IsOnThePageAtTheStartAndOnItsFirstRowAfterTab) {
  ASSERT_NO_FATAL_FAILURE(open());

  const std::string start = told();
  key(Qt::Key_Tab);

  EXPECT_EQ(start, window.page().title());
  EXPECT_EQ(row(), "Enabled");
  EXPECT_TRUE(hasRing());
}

class FocusOnEveryPage : public FocusWindow, public testing::WithParamInterface<PageBehind> {
 protected:
  void SetUp() override { ASSERT_NO_FATAL_FAILURE(open(GetParam().settings())); }
};

TEST_P(FocusOnEveryPage, IsOnThePageThatOpens) {
  ASSERT_NO_FATAL_FAILURE(goTo(GetParam().row));

  key(Qt::Key_Return);

  EXPECT_EQ(told(), window.page().title());
  EXPECT_FALSE(window.page().title().empty());
}

TEST_P(FocusOnEveryPage, ReturnsByKeysToTheRowItCameFrom) {
  ASSERT_NO_FATAL_FAILURE(goTo(GetParam().row));
  key(Qt::Key_Return);
  key(Qt::Key_Down);
  const std::string below = told();
  const bool ringBelow = hasRing();

  key(Qt::Key_Escape);

  EXPECT_NE(below, "nothing");
  EXPECT_TRUE(ringBelow);
  EXPECT_EQ(row(), GetParam().row);
  EXPECT_TRUE(hasRing());
}

TEST_P(FocusOnEveryPage, ReturnsByThePointerToTheRowWithoutARing) {
  ASSERT_TRUE(window.driver->tapRow(GetParam().row));
  settle();

  ASSERT_TRUE(window.driver->tapBack());
  settle();

  EXPECT_EQ(row(), GetParam().row);
  EXPECT_FALSE(hasRing());
}

TEST_P(FocusOnEveryPage, ReturnsByKeysWithARingAlsoWhereThePointerOpenedThePage) {
  ASSERT_TRUE(window.driver->tapRow(GetParam().row));
  settle();

  key(Qt::Key_Escape);

  EXPECT_EQ(row(), GetParam().row);
  EXPECT_TRUE(hasRing());
}

INSTANTIATE_TEST_SUITE_P(Each, FocusOnEveryPage, testing::ValuesIn(kPagesBehind));

TEST_F(FocusWindow, TheFirstRowIsOneKeyAway) {
  ASSERT_NO_FATAL_FAILURE(open());

  key(Qt::Key_Down);

  EXPECT_EQ(row(), "Enabled");
  EXPECT_TRUE(hasRing());
}

TEST_F(FocusWindow, ComesBackToARowOutOfSightWithoutScrollingThere) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_NO_FATAL_FAILURE(goTo("CustomTextColour"));
  const double end = window.driver->findRow("CustomTextColour")->frame().maxY();
  window.table().userDidScroll({0, end + 50});
  settle();
  const double place = window.table().contentOffset().y;
  ASSERT_GT(place, end);

  window.page().viewWillAppear(false);
  settle();

  EXPECT_EQ(row(), "CustomTextColour");
  EXPECT_EQ(window.table().contentOffset().y, place);
}

TEST_F(FocusWindow, StaysOnTheRowWhoseCellIsMadeAnew) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_NO_FATAL_FAILURE(goTo("CustomTextColour"));

  window.page().viewWillAppear(false);
  settle();

  EXPECT_EQ(row(), "CustomTextColour");
  EXPECT_TRUE(hasRing());
}

TEST_F(FocusWindow, ReturnsToTheRowThatWasMadeAnewUnderItsDialogue) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_NO_FATAL_FAILURE(goTo("CustomTextColour"));
  key(Qt::Key_Return);
  ASSERT_NE(window.driver->alert(), nullptr);
  const bool ring = hasRing();
  window.page().viewWillAppear(false);
  settle();

  key(Qt::Key_Escape);

  EXPECT_TRUE(ring);
  EXPECT_EQ(row(), "CustomTextColour");
  EXPECT_TRUE(hasRing());
}

TEST_F(FocusWindow, ShowsItsRingInEveryAlertThatAKeyOpenedOnWhatReturnPresses) {
  ASSERT_NO_FATAL_FAILURE(open());
  window.pasteboard.text = "text";
  ASSERT_NO_FATAL_FAILURE(goTo("CurrentPreset"));
  key(Qt::Key_Return);
  const auto& bar = window.application->navigationController()->navigationBar();
  UITableViewCell* preset = window.driver->findRowWithText("Work");
  const std::vector<std::tuple<const UIView*, Qt::Key, std::string>> ways{
      {bar.rightButton(), Qt::Key_Space, "Import Existing Preset..."},
      {preset, Qt::Key_Return, "Cancel"},
      {preset, Qt::Key_Delete, "Cancel"}};
  for (const auto& [view, opens, button] : ways) {
    quick().itemFor(*view)->forceActiveFocus(Qt::TabFocusReason);

    key(opens);

    EXPECT_EQ(told(), button);
    EXPECT_TRUE(hasRing()) << button;
    EXPECT_EQ(boldButtons(), button);
    key(Qt::Key_Escape);
  }
}

TEST_F(FocusWindow, ShowsItsRingInAnAlertThatComesOverAPageThatAKeyOpened) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_NO_FATAL_FAILURE(goTo("Settings"));
  key(Qt::Key_Return);
  auto alert = UIAlertController::alertControllerWithTitle("Title", "Message");
  alert->addAction(UIAlertAction::actionWithTitle("OK", UIAlertActionStyle::Default));

  window.page().presentViewController(alert, true);
  settle();

  EXPECT_EQ(told(), "OK");
  EXPECT_TRUE(hasRing());
}

TEST_F(FocusWindow, ShowsItsRingInTheColourDialogueOnWhatReturnPresses) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_NO_FATAL_FAILURE(goTo("CustomTextColour"));

  key(Qt::Key_Return);
  const std::string button = told();
  const bool ring = hasRing();
  const std::string bold = boldButtons();
  key(Qt::Key_Return);

  EXPECT_EQ(button, "Done");
  EXPECT_TRUE(ring);
  EXPECT_EQ(bold, "Done");
  EXPECT_EQ(window.settings().at("CustomTextColour"), PropertyListValue("#007AFFFF"));
}

TEST_F(FocusWindow, ReturnPressesWhatStandsOutAndNotWhatThePointerHasLeft) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_TRUE(window.driver->tapRow("CustomTextColour"));
  settle();
  const auto& alert = static_cast<UIAlertControllerView&>(window.driver->alert()->view());
  const QQuickItem* cancel = quick().itemFor(*alert.buttons()[0]);
  const QPoint middle = cancel->mapToScene({cancel->width() / 2, cancel->height() / 2}).toPoint();
  QTest::mousePress(&quick(), Qt::LeftButton, {}, middle);
  QTest::mouseRelease(&quick(), Qt::LeftButton, {}, QPoint(1, 1));
  settle();
  ASSERT_EQ(told(), "Cancel");

  key(Qt::Key_Return);

  EXPECT_EQ(window.driver->alert(), nullptr);
  EXPECT_EQ(window.settings().at("CustomTextColour"), PropertyListValue("#007AFFFF"));
}

TEST_F(FocusWindow, ShowsNoRingInAnAlertThatThePointerOpened) {
  ASSERT_NO_FATAL_FAILURE(open());

  ASSERT_TRUE(window.driver->tapRow("CustomTextColour"));
  settle();

  EXPECT_FALSE(hasRing());
}

}  // namespace
}  // namespace frelta
