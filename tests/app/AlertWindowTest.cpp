#include <QAccessible>
#include <QQuickTextDocument>
#include <QTextDocument>

#include "tests/app/PresetsWindow.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AlertWindow : public PresetsWindow {
 protected:
  void openNewPreset() {
    ASSERT_NO_FATAL_FAILURE(openScreen());
    ASSERT_TRUE(driver().tapRightButton());
    ASSERT_EQ(alertTitle(), "New Preset");
  }
  UIAlertControllerView& view() {
    return *findView<UIAlertControllerView>(driver().alert()->view());
  }
  QQuickItem* itemOfField(std::size_t index) {
    return quick().itemFor(*driver().alert()->textFields()[index]);
  }
  /// Of everything visible that assistive technology finds in the window, in order.
  QStringList accessibleNames() {
    QStringList names;
    collectNames(QAccessible::queryAccessibleInterface(&quick()), names);
    return names;
  }
  void keys(const QString& text) {
    for (const QChar character : text) QTest::keyClick(&quick(), character.toLatin1());
  }

 private:
  static void collectNames(QAccessibleInterface* parent, QStringList& names) {
    for (int i = 0; i < parent->childCount(); ++i) {
      QAccessibleInterface* child = parent->child(i);
      if (child->state().invisible) continue;
      if (const QString name = child->text(QAccessible::Name); !name.isEmpty()) names.append(name);
      collectNames(child, names);
    }
  }
};

TEST_F(AlertWindow, FocusStartsInTheFirstFieldSoThatTypingNeedsNoTap) {
  ASSERT_NO_FATAL_FAILURE(openNewPreset());

  keys(QStringLiteral("abc"));
  window.settle();

  EXPECT_EQ(driver().alert()->textFields()[0]->text(), "abc");
  EXPECT_EQ(quick().activeFocusItem(), itemOfField(0));
}

TEST_F(AlertWindow, ReturnPressesTheDefaultButton) {
  ASSERT_NO_FATAL_FAILURE(openNewPreset());
  keys(QStringLiteral("abc"));

  key(Qt::Key_Return);

  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_THAT(folder(), ElementsAre("abc.plist"));
}

TEST_F(AlertWindow, EscapePressesTheCancelButtonAndLeavesTheScreenWhereItIs) {
  ASSERT_NO_FATAL_FAILURE(openNewPreset());
  keys(QStringLiteral("abc"));

  key(Qt::Key_Escape);

  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_THAT(folder(), IsEmpty());
  EXPECT_EQ(window.application->navigationController()->viewControllers().size(), 2u);
}

TEST_F(AlertWindow, ReturnConfirmsNothingDestructive) {
  putPreset("A", {});
  ASSERT_NO_FATAL_FAILURE(openScreen());
  driver().tapRowWithText("A");
  ASSERT_EQ(alertTitle(), "Apply Preset");

  key(Qt::Key_Return);

  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_EQ(window.settings(), Dictionary{});
}

TEST_F(AlertWindow, FocusComesBackToWhereItWas) {
  putPreset("A", {});
  ASSERT_NO_FATAL_FAILURE(openScreen());
  itemOfRow("A")->forceActiveFocus(Qt::TabFocusReason);

  key(Qt::Key_Space);
  ASSERT_EQ(alertTitle(), "Apply Preset");
  EXPECT_NE(quick().activeFocusItem(), itemOfRow("A"));
  key(Qt::Key_Escape);

  EXPECT_EQ(quick().activeFocusItem(), itemOfRow("A"));
}

TEST_F(AlertWindow, FocusComesBackAfterOneAlertLedToAnother) {
  window.pasteboard.text = "text";
  ASSERT_NO_FATAL_FAILURE(openScreen());
  const UIButton* add = window.application->navigationController()->navigationBar().rightButton();
  quick().itemFor(*add)->forceActiveFocus(Qt::TabFocusReason);

  key(Qt::Key_Space);
  press("Create New Preset...");
  EXPECT_EQ(quick().activeFocusItem(), itemOfField(0));
  key(Qt::Key_Escape);

  EXPECT_EQ(quick().activeFocusItem(), quick().itemFor(*add));
}

TEST_F(AlertWindow, TheTabKeyGoesRoundWithinTheAlert) {
  window.pasteboard.text = "text";
  putPreset("A", {});
  ASSERT_NO_FATAL_FAILURE(openScreen());
  driver().tapRightButton();
  press("Import Existing Preset...");
  const QQuickItem* alert = quick().itemFor(view());
  const std::vector<QQuickItem*> expected{itemOfField(1), quick().itemFor(*view().buttons()[0]),
                                          quick().itemFor(*view().buttons()[1]), itemOfField(0)};

  for (QQuickItem* item : expected) {
    QTest::keyClick(&quick(), Qt::Key_Tab);
    EXPECT_EQ(quick().activeFocusItem(), item);
    EXPECT_TRUE(alert->isAncestorOf(quick().activeFocusItem()));
  }
  QTest::keyClick(&quick(), Qt::Key_Backtab);
  EXPECT_EQ(quick().activeFocusItem(), expected[2]);
}

TEST_F(AlertWindow, NothingBelowIsPressedScrolledOrLeft) {
  putPreset("A", {});
  ASSERT_NO_FATAL_FAILURE(openScreen());
  const QPointF row = itemOfRow("A")->mapToScene({20, 20});
  ASSERT_TRUE(driver().tapRightButton());

  QTest::mouseClick(&quick(), Qt::LeftButton, {}, row.toPoint());
  window.settle();
  EXPECT_EQ(alertTitle(), "New Preset");
  QTest::mouseClick(&quick(), Qt::LeftButton, {}, QPoint(30, 20));
  window.settle();
  EXPECT_EQ(alertTitle(), "New Preset");
  key(Qt::Key_Left, Qt::AltModifier);

  EXPECT_EQ(window.application->navigationController()->viewControllers().size(), 2u);
  EXPECT_EQ(driver().alert()->textFields()[0]->text(), "");
}

TEST_F(AlertWindow, IsADialogueWithANameForAssistiveTechnology) {
  ASSERT_NO_FATAL_FAILURE(openNewPreset());

  QAccessibleInterface* alert = QAccessible::queryAccessibleInterface(quick().itemFor(view()));

  ASSERT_NE(alert, nullptr);
  EXPECT_EQ(alert->role(), QAccessible::Dialog);
  EXPECT_EQ(alert->text(QAccessible::Name), QStringLiteral("New Preset"));
}

TEST_F(AlertWindow, AssistiveTechnologyFindsNothingBelowUntilItCloses) {
  window.pasteboard.text = "text";
  for (const char* name : {"A", "B"}) putPreset(name, {});
  ASSERT_NO_FATAL_FAILURE(openScreen());
  driver().swipeRowWithText("B");
  const QStringList before = accessibleNames();
  ASSERT_TRUE(QSet<QString>(before.begin(), before.end()).contains({"A", "B", "Share", "Add"}));

  driver().tapRightButton();
  press("Import Existing Preset...");

  EXPECT_THAT(accessibleNames(),
              ElementsAre("Import Preset", "Import Preset",
                          "Enter a name and paste the preset data below...", "Preset Name...",
                          "Preset Data...", "Import", "Cancel"));
  key(Qt::Key_Escape);
  EXPECT_EQ(accessibleNames(), before);
}

TEST_F(AlertWindow, RowsThatComeWhileItIsOpenAreHiddenFromAssistiveTechnologyToo) {
  for (int i = 0; i < 30; ++i) putPreset("Row " + std::to_string(i), {});
  ASSERT_NO_FATAL_FAILURE(openScreen());
  const auto rows = [&] { return accessibleNames().filter(QStringLiteral("Row ")).size(); };
  const auto before = rows();
  driver().tapRightButton();

  quick().resize(390, 1500);
  window.settle();

  EXPECT_EQ(rows(), 0);
  key(Qt::Key_Escape);
  EXPECT_GT(rows(), before);
}

TEST_F(AlertWindow, TheClearButtonShowsWhileEditingAndEmptiesTheField) {
  ASSERT_NO_FATAL_FAILURE(openNewPreset());
  keys(QStringLiteral("abc"));
  window.settle();
  ASSERT_EQ(driver().alert()->textFields()[0]->text(), "abc");
  EXPECT_TRUE(accessibleNames().contains("Clear"));
  key(Qt::Key_Tab);
  EXPECT_FALSE(accessibleNames().contains("Clear"));
  key(Qt::Key_Backtab);
  const QQuickItem* field = itemOfField(0);

  const QPointF clear = field->mapToScene({field->width() - 10, field->height() / 2});
  QTest::mouseClick(&quick(), Qt::LeftButton, {}, clear.toPoint());
  window.settle();

  EXPECT_EQ(driver().alert()->textFields()[0]->text(), "");
  EXPECT_EQ(quick().activeFocusItem(), itemOfField(0));
}

TEST_F(AlertWindow, AMegabyteOfSharedTextIsShownPieceByPiece) {
  std::string noise(750'000, ' ');
  unsigned seed = 1;
  for (char& c : noise)
    c = static_cast<char>('!' + (seed = seed * 1664525 + 1013904223) / 47721858);
  std::erase_if(noise, [](char c) { return c < ' ' || c > '~'; });
  putPreset("Big", {{"Noise", noise}});
  ASSERT_NO_FATAL_FAILURE(openScreen());
  ASSERT_TRUE(driver().swipeAndTapAction("Big", QStringLiteral("Share")));
  const auto shownCharacters = [&] {
    const QQuickItem* item = quick().itemFor(*view().messageView());
    auto* document = item ? item->property("document").value<QQuickTextDocument*>() : nullptr;
    return document ? document->textDocument()->characterCount() : 0;
  };

  int turns = 0;
  do {
    window.platform.mainQueue.runPending();
    QCoreApplication::processEvents();
    if (turns % 10 == 0) quick().grabWindow();
    ++turns;
  } while (turns < 100'000 && shownCharacters() < static_cast<int>(alertMessage().size()));

  EXPECT_EQ(alertTitle(), "Share \"Big\"...");
  EXPECT_GT(alertMessage().size(), 800'000u);
  EXPECT_GT(turns, 20) << "it was shown all at once";
  EXPECT_GE(shownCharacters(), static_cast<int>(alertMessage().size()));
}

}  // namespace
}  // namespace frelta
