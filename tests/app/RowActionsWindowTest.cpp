#include <QAccessible>
#include <QWheelEvent>

#include "tests/app/PresetsWindow.h"

namespace frelta {
namespace {

class RowActionsWindow : public PresetsWindow {
 protected:
  void openWithPresets() {
    putPreset("A", {});
    putPreset("B", {});
    ASSERT_NO_FATAL_FAILURE(openScreen());
  }
  UITableView& table() {
    return *findView<UITableView>(
        window.application->navigationController()->topViewController()->view());
  }
  bool isOpen(const std::string& text) {
    const UITableViewCell* cell = driver().findRowWithText(text);
    return cell && !cell->rowActions().empty() &&
           table().indexPathForSwipedRow() == table().indexPathForCell(*cell);
  }
  QPointF middleOf(const std::string& text) {
    const QQuickItem* item = itemOfRow(text);
    return item->mapToScene({item->width() / 2, item->height() / 2});
  }
  void focusRow(const std::string& text) { itemOfRow(text)->forceActiveFocus(Qt::TabFocusReason); }
  void scrollSideways(const std::string& text, int angle) {
    const QPointF point = middleOf(text);
    QWheelEvent event(point, quick().mapToGlobal(point), {}, {angle, 0}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&quick(), &event);
    window.settle();
  }
};

TEST_F(RowActionsWindow, ASwipeOpensARowATapClosesItAndSelectsNothing) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());

  EXPECT_TRUE(driver().swipeRowWithText("A"));
  EXPECT_TRUE(isOpen("A"));
  EXPECT_TRUE(driver().tapView(*driver().findRowWithText("A"), 0.1));

  EXPECT_FALSE(isOpen("A"));
  EXPECT_EQ(alertTitle(), "no alert");
}

TEST_F(RowActionsWindow, OnlyOneRowIsOpenAtATime) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());

  driver().swipeRowWithText("A");
  driver().swipeRowWithText("B");

  EXPECT_FALSE(isOpen("A"));
  EXPECT_TRUE(isOpen("B"));
}

TEST_F(RowActionsWindow, AShortSwipeFallsBack) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());
  const QPoint start = middleOf("A").toPoint();

  QTest::mousePress(&quick(), Qt::LeftButton, {}, start);
  for (int x = 5; x <= 30; x += 5) QTest::mouseMove(&quick(), start - QPoint(x, 0), 1);
  QTest::mouseRelease(&quick(), Qt::LeftButton, {}, start - QPoint(30, 0));
  window.settle();

  EXPECT_FALSE(isOpen("A"));
  EXPECT_EQ(alertTitle(), "no alert");
}

TEST_F(RowActionsWindow, ATwoFingerScrollOpensAndClosesARow) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());

  scrollSideways("A", -120);
  EXPECT_TRUE(isOpen("A"));
  scrollSideways("A", 240);

  EXPECT_FALSE(isOpen("A"));
}

TEST_F(RowActionsWindow, TheContextMenuOffersTheActionsToAPointer) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());

  QTest::mouseClick(&quick(), Qt::RightButton, {}, middleOf("A").toPoint());
  window.settle();
  key(Qt::Key_Down);
  key(Qt::Key_Return);

  EXPECT_EQ(alertTitle(), "Delete Preset");
  EXPECT_EQ(alertMessage(), "Are you sure you would like to delete preset \"A\"?");
  key(Qt::Key_Escape);
  EXPECT_EQ(alertTitle(), "no alert");
}

TEST_F(RowActionsWindow, TheMenuKeyOffersTheActionsToTheKeyboard) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());
  focusRow("A");

  key(Qt::Key_Menu);
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  key(Qt::Key_Return);
  window.settle();

  EXPECT_EQ(alertTitle(), "Share \"A\"...");
  key(Qt::Key_Escape);
  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_EQ(quick().activeFocusItem(), itemOfRow("A"));
}

TEST_F(RowActionsWindow, TheContextMenuClosesWithEscapeAndNothingHappens) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());
  focusRow("A");

  key(Qt::Key_Menu);
  EXPECT_NE(quick().activeFocusItem(), itemOfRow("A"));
  key(Qt::Key_Escape);

  EXPECT_EQ(quick().activeFocusItem(), itemOfRow("A"));
  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_EQ(window.application->navigationController()->viewControllers().size(), 2u);
}

TEST_F(RowActionsWindow, TheDeleteKeyAsksToDeleteTheRowWithTheKeyboard) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());
  focusRow("B");

  key(Qt::Key_Delete);

  EXPECT_EQ(alertTitle(), "Delete Preset");
  EXPECT_EQ(alertMessage(), "Are you sure you would like to delete preset \"B\"?");
}

TEST_F(RowActionsWindow, AssistiveTechnologyOpensARowAndFindsItsActions) {
  ASSERT_NO_FATAL_FAILURE(openWithPresets());
  QAccessibleInterface* row = QAccessible::queryAccessibleInterface(itemOfRow("A"));
  ASSERT_NE(row, nullptr);
  ASSERT_NE(row->actionInterface(), nullptr);
  EXPECT_TRUE(row->actionInterface()->actionNames().contains(
      QAccessibleActionInterface::scrollLeftAction()));

  row->actionInterface()->doAction(QAccessibleActionInterface::scrollLeftAction());
  window.settle();

  ASSERT_TRUE(isOpen("A"));
  QStringList names;
  QAccessibleInterface* share = nullptr;
  for (int i = 0; i < row->childCount(); ++i) {
    names.append(row->child(i)->text(QAccessible::Name));
    if (names.last() == QStringLiteral("Share")) share = row->child(i);
  }
  EXPECT_TRUE(names.contains(QStringLiteral("Delete")));
  ASSERT_NE(share, nullptr) << names.join(u',').toStdString();
  share->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  window.settle();
  EXPECT_EQ(alertTitle(), "Share \"A\"...");
}

}  // namespace
}  // namespace frelta
