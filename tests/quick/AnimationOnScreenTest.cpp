#include <QElapsedTimer>

#include "tests/quick/WindowTest.h"
#include "uikit/UILabel.h"

namespace frelta {
namespace {

class AnimationOnScreenTest : public WindowTest {
 protected:
  UIView* addBox(UIView& root) {
    UIView* box = root.addSubview(std::make_unique<UIView>(CGRect(20, 20, 100, 40)));
    box->setBackgroundColor(UIColor::colorWithRed(1, 0, 0, 1));
    settle();
    return box;
  }
  /// Moves the clock and shows a frame.
  void advance(double seconds) {
    platform.mainQueue.advance(seconds);
    window->mirror().flush();
  }
  /// The frames that the window shows of itself.
  int framesIn(int milliseconds) {
    int frames = 0;
    const auto connection = QObject::connect(
        window.get(), &QQuickWindow::frameSwapped, window.get(), [&] { ++frames; },
        Qt::DirectConnection);
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(milliseconds)) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    QObject::disconnect(connection);
    return frames;
  }
};

TEST_F(AnimationOnScreenTest, ItemsFollowWhatIsShownAndNotTheModel) {
  UIView* box = addBox(showPlain());

  UIView::animateWithDuration(0.2, [&] {
    box->setFrame({220, 20, 200, 40});
    box->setAlpha(0);
    box->setBackgroundColor(UIColor::colorWithRed(0, 0, 1, 1));
  });
  settle();
  const QRectF start = placeOf(*box);
  advance(0.1);

  EXPECT_EQ(start, QRectF(20, 20, 100, 40));
  EXPECT_EQ(placeOf(*box), QRectF(120, 20, 150, 40));
  EXPECT_DOUBLE_EQ(item(*box)->opacity(), 0.5);
  EXPECT_EQ(item(*box)->property("color").value<QColor>(), QColor::fromRgbF(0.5, 0, 0.5));
  advance(0.1);
  EXPECT_EQ(placeOf(*box), QRectF(220, 20, 200, 40));
  EXPECT_EQ(item(*box)->opacity(), 0);
}

TEST_F(AnimationOnScreenTest, FramesComeWhileSomethingMovesAndNoneAfterwards) {
  UIView* box = addBox(showPlain());
  UIView::animateWithDuration(0.2, [&] { box->setAlpha(0.25); });

  const int moving = framesIn(150);
  advance(0.3);
  framesIn(100);

  EXPECT_GT(moving, 1);
  EXPECT_EQ(framesIn(150), 0);
  EXPECT_EQ(item(*box)->opacity(), 0.25);
}

TEST_F(AnimationOnScreenTest, AViewThatGoesInMidAnimationHarmsNothing) {
  UIView& root = showPlain();
  UIView* box = addBox(root);
  UIView::animateWithDuration(0.2, [&] { box->setAlpha(0); });
  advance(0.1);

  box->removeFromSuperview().reset();
  advance(0.05);
  settle();
  advance(1);

  EXPECT_TRUE(item(root)->childItems().empty());
}

TEST_F(AnimationOnScreenTest, MovedRowsSlideToTheirPlaces) {
  auto screen =
      std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 3, ""}, {"", 3, ""}});
  show(screen);
  const UITableViewCell* cell = screen->table().cellForRowAtIndexPath({1, 2});
  const double before = placeOf(*cell).y();

  screen->table().beginUpdates();
  screen->rows.sections[0].rows = 4;
  screen->rows.sections[1].rows = 2;
  screen->table().moveRowAtIndexPath({1, 2}, {0, 0});
  screen->table().endUpdates();
  advance(0.15);
  const double middle = placeOf(*cell).y();
  advance(0.15);

  EXPECT_EQ(placeOf(*cell).y(), 14);
  EXPECT_NEAR(middle, (before + 14) / 2, 1e-6);
}

TEST_F(AnimationOnScreenTest, AnimatedScrollingMovesTheContentUntilTheUserDoes) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 1000, ""}});
  show(screen);
  UITableView& table = screen->table();
  QQuickItem* flickable =
      item(table)->property("content").value<QQuickItem*>()->parentItem()->parentItem();

  table.scrollToRowAtIndexPath({0, 500}, UITableViewScrollPosition::Top, true);
  advance(0.15);
  const double shown = flickable->property("contentY").toDouble();
  const double asked = table.contentOffset().y;
  flickable->setProperty("contentY", 100.0);
  advance(1);

  EXPECT_GT(asked, 1000);
  EXPECT_NEAR(shown, asked, 0.5);
  EXPECT_EQ(table.contentOffset().y, 100);
  EXPECT_EQ(flickable->property("contentY").toDouble(), 100);
}

TEST_F(AnimationOnScreenTest, PageKeysScrollTheTable) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 1000, ""}});
  show(screen);
  UITableView& table = screen->table();
  const auto press = [&](Qt::Key pressed) {
    key(pressed);
    advance(0.5);
    settle();
    return table.contentOffset().y;
  };

  EXPECT_EQ(press(Qt::Key_PageDown), 556);
  key(Qt::Key_PageDown);
  EXPECT_EQ(press(Qt::Key_PageDown), 3 * 556);
  EXPECT_EQ(press(Qt::Key_PageUp), 2 * 556);
  EXPECT_EQ(press(Qt::Key_End), table.contentSize().height - 600);
  EXPECT_EQ(press(Qt::Key_Home), 0);
}

}  // namespace
}  // namespace frelta
