#include <QElapsedTimer>
#include <QWheelEvent>

#include "tests/quick/WindowTest.h"

namespace frelta {
namespace {

class ScrollingTest : public WindowTest {
 protected:
  void SetUp() override {
    screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 10000, ""}});
    show(screen);
  }
  UITableView& table() { return screen->table(); }
  QQuickItem* flickable() {
    return item(table())->property("content").value<QQuickItem*>()->parentItem()->parentItem();
  }
  /// Whether each point of the window that a row should fill is filled by that row's item.
  testing::AssertionResult rowsFillTheWindow() {
    const double shift = placeOf(table()).y() - flickable()->property("contentY").toDouble();
    for (int y = 1; y < 600; y += 11) {
      const double contentY = y - shift;
      const int row = static_cast<int>((contentY - 14) / 44);
      if (contentY < 14 || row >= 10000) continue;
      const UITableViewCell* cell = table().cellForRowAtIndexPath({0, row});
      if (!cell || !item(*cell)) return testing::AssertionFailure() << "no row " << row;
      const QRectF place = placeOf(*cell);
      if (y < place.top() || y > place.bottom()) {
        return testing::AssertionFailure() << "row " << row << " is elsewhere";
      }
    }
    return testing::AssertionSuccess();
  }
  void wheel(int angle) {
    QWheelEvent event({200, 300}, window->mapToGlobal(QPointF(200, 300)), {}, {0, angle},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window.get(), &event);
  }
  /// Turns the event loop, looking at the rows at each turn.
  void watchFor(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(milliseconds)) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
      ASSERT_TRUE(rowsFillTheWindow());
    }
  }

  std::shared_ptr<TableScreen> screen;
};

TEST_F(ScrollingTest, TheWheelScrollsAndLeavesNoRowBlank) {
  for (int turn = 0; turn < 10; ++turn) {
    wheel(-360);
    watchFor(30);
  }
  watchFor(300);

  EXPECT_GT(table().contentOffset().y, 300);
  EXPECT_NEAR(table().contentOffset().y, flickable()->property("contentY").toDouble(), 0.001);
}

TEST_F(ScrollingTest, AFlickScrollsOnAndLeavesNoRowBlank) {
  QMetaObject::invokeMethod(flickable(), "flick", Q_ARG(qreal, 0), Q_ARG(qreal, -8000));

  watchFor(600);

  EXPECT_GT(table().contentOffset().y, 1000);
}

TEST_F(ScrollingTest, ALeapShowsItsRowsAtOnce) {
  flickable()->setProperty("contentY", 200000.0);

  EXPECT_TRUE(rowsFillTheWindow());
  EXPECT_EQ(table().contentOffset().y, 200000);
}

TEST_F(ScrollingTest, ScrollingInCodeMovesTheContent) {
  table().scrollToRowAtIndexPath({0, 5000});
  settle();

  EXPECT_EQ(flickable()->property("contentY").toDouble(), table().contentOffset().y);
  EXPECT_TRUE(rowsFillTheWindow());
}

TEST_F(ScrollingTest, FewItemsShowTenThousandRows) {
  for (double y = 0; y < 440000; y += 3333) {
    flickable()->setProperty("contentY", y);
    settle();
  }

  EXPECT_LE(screen->rows.cellsMade, 30);
  EXPECT_LE(item(table())->property("content").value<QQuickItem*>()->childItems().size(), 30);
}

TEST_F(ScrollingTest, ContentThatGetsShorterIsShownFromItsEnd) {
  table().scrollToRowAtIndexPath({0, 5000});
  settle();

  screen->rows.sections[0].rows = 100;
  table().reloadData();
  settle();

  EXPECT_EQ(flickable()->property("contentY").toDouble(), table().contentOffset().y);
  EXPECT_EQ(table().contentOffset().y, table().contentSize().height - 600);
}

TEST_F(ScrollingTest, AReloadLeavesTheScrollingWhereItIs) {
  flickable()->setProperty("contentY", 1234.0);

  table().reloadData();
  settle();

  EXPECT_EQ(flickable()->property("contentY").toDouble(), 1234);
  EXPECT_EQ(table().contentOffset().y, 1234);
}

TEST_F(ScrollingTest, ATallerWindowAtTheEndShowsNoBlank) {
  table().scrollToRowAtIndexPath({0, 9999});
  settle();
  flickable()->setProperty("contentY", table().contentSize().height - 600);

  window->resize(400, 900);
  settle();

  EXPECT_EQ(table().contentOffset().y, table().contentSize().height - 900);
  EXPECT_EQ(flickable()->property("contentY").toDouble(), table().contentOffset().y);
}

}  // namespace
}  // namespace frelta
