#include <QPointingDevice>

#include "tests/quick/WindowTest.h"
#include "uikit/UIButton.h"
#include "uikit/UILongPressGestureRecognizer.h"

namespace frelta {
namespace {

using State = UIGestureRecognizerState;
using testing::ElementsAre;
using testing::IsEmpty;

/// A view that feels long presses, with a button in it.
class LongPressOnScreenTest : public WindowTest {
 protected:
  void SetUp() override {
    UIView& root = showPlain();
    view = root.addSubview(std::make_unique<UIView>(CGRect(50, 50, 200, 100)));
    view->addGestureRecognizer(std::make_unique<UILongPressGestureRecognizer>(
        [this](UIGestureRecognizer& sender) { states.push_back(sender.state()); }));
    button =
        view->addSubview(std::make_unique<UIButton>(UIButtonType::System, CGRect(20, 20, 80, 44)));
    button->setTitle("Press");
    button->addTarget(
        this, "press", [this](UIControl&) { ++presses; }, UIControlEventTouchUpInside);
    settle();
  }
  void press(QPoint point) {
    QTest::mousePress(window.get(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents();
  }
  void release(QPoint point) {
    QTest::mouseRelease(window.get(), Qt::LeftButton, {}, point);
    settle();
  }

  UIView* view = nullptr;
  UIButton* button = nullptr;
  std::vector<State> states;
  int presses = 0;
};

TEST_F(LongPressOnScreenTest, HoldingTheButtonIsALongPressAndNoClick) {
  press(pointIn(*button));
  platform.mainQueue.advance(0.5);
  QTest::mouseMove(window.get(), pointIn(*button, 0.6));
  release(pointIn(*button, 0.6));

  EXPECT_THAT(states, ElementsAre(State::Began, State::Changed, State::Ended));
  EXPECT_EQ(presses, 0);
  EXPECT_FALSE(item(*button)->property("pressed").toBool());
}

TEST_F(LongPressOnScreenTest, AShortPressIsAClickAndNoLongPress) {
  press(pointIn(*button));
  platform.mainQueue.advance(0.4);
  release(pointIn(*button));
  platform.mainQueue.advance(1);

  EXPECT_THAT(states, IsEmpty());
  EXPECT_EQ(presses, 1);
}

TEST_F(LongPressOnScreenTest, APressThatMovesAwayIsNone) {
  press(pointIn(*view, 0.9, 0.9));
  QTest::mouseMove(window.get(), pointIn(*view, 0.9, 0.9) - QPoint(0, 30));
  platform.mainQueue.advance(1);
  release(pointIn(*view, 0.9, 0.9) - QPoint(0, 30));

  EXPECT_THAT(states, IsEmpty());
}

TEST_F(LongPressOnScreenTest, AFingerDoesTheSame) {
  static QPointingDevice* const finger = QTest::createTouchDevice();
  const QPoint point = pointIn(*button);

  QTest::touchEvent(window.get(), finger).press(0, point);
  settle();
  platform.mainQueue.advance(0.5);
  QTest::touchEvent(window.get(), finger).release(0, point);
  settle();

  EXPECT_THAT(states, ElementsAre(State::Began, State::Ended));
  EXPECT_EQ(presses, 0);
}

TEST_F(LongPressOnScreenTest, TheSecondButtonIsAWholePress) {
  QTest::mouseClick(window.get(), Qt::RightButton, {}, pointIn(*view, 0.9, 0.9));
  settle();

  EXPECT_THAT(states, ElementsAre(State::Began, State::Ended));
}

TEST_F(LongPressOnScreenTest, TheMenuKeyPressesWhatIsAroundTheFocus) {
  item(*button)->forceActiveFocus(Qt::TabFocusReason);

  key(Qt::Key_Menu);

  EXPECT_THAT(states, ElementsAre(State::Began, State::Ended));
  EXPECT_EQ(presses, 0);
}

TEST_F(LongPressOnScreenTest, AViewThatGoesDuringThePressHarmsNothing) {
  press(pointIn(*view, 0.9, 0.9));

  view->removeFromSuperview().reset();
  platform.mainQueue.advance(1);
  release({200, 140});

  EXPECT_THAT(states, IsEmpty());
}

TEST_F(LongPressOnScreenTest, AWindowThatClosesDuringThePressHarmsNothing) {
  auto kept = window->uiWindow().rootViewController()->shared_from_this();
  press(pointIn(*view, 0.9, 0.9));

  window.reset();
  platform.mainQueue.advance(1);

  EXPECT_THAT(states, IsEmpty());
}

}  // namespace
}  // namespace frelta
