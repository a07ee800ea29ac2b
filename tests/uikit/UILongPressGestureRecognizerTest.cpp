#include "uikit/UILongPressGestureRecognizer.h"

#include "fake/FakePlatform.h"
#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

using State = UIGestureRecognizerState;
using testing::ElementsAre;
using testing::IsEmpty;

class UILongPressGestureRecognizerTest : public KitTest {
 protected:
  FakePlatform platform;
  std::vector<State> states;
  UILongPressGestureRecognizer recognizer{
      [this](UIGestureRecognizer& sender) { states.push_back(sender.state()); }};
};

TEST_F(UILongPressGestureRecognizerTest, HasThePlatformsDefaults) {
  EXPECT_EQ(recognizer.minimumPressDuration(), 0.5);
  EXPECT_EQ(recognizer.allowableMovement(), 10);
  EXPECT_TRUE(recognizer.cancelsTouchesInView());
  EXPECT_EQ(recognizer.state(), State::Possible);
}

TEST_F(UILongPressGestureRecognizerTest, SendsOneMessageForEachOfItsStates) {
  recognizer.touchBegan({100, 100});
  platform.mainQueue.advance(0.499);
  const auto before = states;
  platform.mainQueue.advance(0.001);
  recognizer.touchMoved({200, 100});
  recognizer.touchMoved({210, 100});
  recognizer.touchEnded();

  EXPECT_THAT(before, IsEmpty());
  EXPECT_THAT(states, ElementsAre(State::Began, State::Changed, State::Changed, State::Ended));
  EXPECT_EQ(recognizer.state(), State::Possible);
}

TEST_F(UILongPressGestureRecognizerTest, AFingerMayStrayTenPointsAndNoMore) {
  recognizer.touchBegan({100, 100});
  recognizer.touchMoved({106, 108});
  platform.mainQueue.advance(0.5);
  recognizer.touchEnded();
  recognizer.touchBegan({100, 100});
  recognizer.touchMoved({106, 109});
  recognizer.touchMoved({100, 100});
  platform.mainQueue.advance(0.5);
  recognizer.touchEnded();

  EXPECT_THAT(states, ElementsAre(State::Began, State::Ended));
}

TEST_F(UILongPressGestureRecognizerTest, AShortTouchIsNoneAlsoWhenAnotherFollows) {
  recognizer.touchBegan({0, 0});
  platform.mainQueue.advance(0.3);
  recognizer.touchEnded();
  recognizer.touchBegan({0, 0});
  platform.mainQueue.advance(0.3);
  const auto first = states;
  platform.mainQueue.advance(0.2);

  EXPECT_THAT(first, IsEmpty());
  EXPECT_THAT(states, ElementsAre(State::Began));
}

TEST_F(UILongPressGestureRecognizerTest, ATouchThatIsTakenAwayIsCancelledOnceItWasRecognised) {
  recognizer.touchBegan({0, 0});
  recognizer.touchCancelled();
  recognizer.touchBegan({0, 0});
  platform.mainQueue.advance(0.5);
  recognizer.touchCancelled();
  recognizer.touchEnded();

  EXPECT_THAT(states, ElementsAre(State::Began, State::Cancelled));
}

TEST_F(UILongPressGestureRecognizerTest, TheTouchIsTakenRightBeforeTheFirstMessage) {
  std::vector<State> statesWhenTaken;

  recognizer.touchBegan({0, 0}, [&] {
    statesWhenTaken = states;
    states.push_back(State::Failed);
  });
  platform.mainQueue.advance(0.5);

  EXPECT_THAT(statesWhenTaken, IsEmpty());
  EXPECT_THAT(states, ElementsAre(State::Failed, State::Began));
}

TEST_F(UILongPressGestureRecognizerTest, APressWithoutAFingerBeginsAndEnds) {
  recognizer.performPress();

  EXPECT_THAT(states, ElementsAre(State::Began, State::Ended));
  EXPECT_EQ(recognizer.state(), State::Possible);
}

TEST_F(UILongPressGestureRecognizerTest, TheActionMayTakeTheViewDown) {
  auto view = std::make_unique<UIView>();
  auto* inView = static_cast<UILongPressGestureRecognizer*>(view->addGestureRecognizer(
      std::make_unique<UILongPressGestureRecognizer>([&](UIGestureRecognizer&) { view.reset(); })));

  inView->performPress();

  EXPECT_EQ(view, nullptr);
}

TEST_F(UILongPressGestureRecognizerTest, AViewThatGoesTakesItsPressAlong) {
  auto view = std::make_unique<UIView>();
  auto* inView = static_cast<UILongPressGestureRecognizer*>(
      view->addGestureRecognizer(std::make_unique<UILongPressGestureRecognizer>(
          [&](UIGestureRecognizer& sender) { states.push_back(sender.state()); })));
  inView->touchBegan({0, 0});

  view.reset();
  platform.mainQueue.advance(1);

  EXPECT_THAT(states, IsEmpty());
}

}  // namespace
}  // namespace frelta
