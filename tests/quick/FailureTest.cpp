#include <stdexcept>

#include "tests/quick/WindowTest.h"
#include "uikit/UIButton.h"
#include "uikit/UINavigationController.h"
#include "uikit/UISegmentedControl.h"
#include "uikit/UISlider.h"
#include "uikit/UITextField.h"

namespace frelta {
namespace {

using testing::ElementsAre;

/// What goes wrong in a handler stays there.
class FailureTest : public WindowTest {
 protected:
  template <typename View>
  View* add(UIView& parent, std::unique_ptr<View> view, CGRect frame) {
    view->setFrame(frame);
    View* raw = parent.addSubview(std::move(view));
    settle();
    return raw;
  }
  /// Has the view destroyed by each of the control's events.
  void destroyAt(UIControl& control, unsigned events) {
    control.addTarget(
        this, "destroy",
        [this](UIControl& sender) {
          sender.removeFromSuperview().reset();
          ++destroyed;
        },
        events);
  }

  int destroyed = 0;
};

TEST_F(FailureTest, AnExceptionIsLoggedOnceAndTheWindowLives) {
  UIView& root = showPlain();
  auto* button = add(root, std::make_unique<UIButton>(), {0, 0, 100, 44});
  int presses = 0;
  button->addTarget(
      this, "throw",
      [&presses](UIControl&) {
        ++presses;
        throw std::runtime_error("handler failed on purpose");
      },
      UIControlEventTouchUpInside);

  click(*button);
  const std::vector<std::string> lines = platform.log.lines;
  click(*button);

  EXPECT_THAT(lines, ElementsAre("[Frelta] Uncaught exception: handler failed on purpose"));
  EXPECT_EQ(presses, 2);
}

TEST_F(FailureTest, AnExceptionOfAnyTypeIsLogged) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 3, ""}});
  screen->rows.selected = [](IndexPath) { throw 7; };
  show(screen);

  click(*screen->table().cellForRowAtIndexPath({0, 0}));

  EXPECT_THAT(platform.log.lines, ElementsAre("[Frelta] Uncaught exception"));
}

TEST_F(FailureTest, ALayoutThatThrowsIsLoggedOnceAndTheOthersAreShown) {
  class ThrowingView : public UIView {
   public:
    void layoutSubviews() override { throw std::runtime_error("layout failed on purpose"); }
  };
  UIView& root = showPlain();
  add(root, std::make_unique<ThrowingView>(), {0, 0, 10, 10});

  UIView* other = add(root, std::make_unique<UIView>(), {0, 50, 100, 44});
  settle();

  EXPECT_THAT(platform.log.lines,
              ElementsAre("[Frelta] Uncaught exception: layout failed on purpose"));
  EXPECT_EQ(placeOf(*other), QRectF(0, 50, 100, 44));
}

TEST_F(FailureTest, ARecogniserThatThrowsIsLoggedOnce) {
  UIView& root = showPlain();
  root.addGestureRecognizer(std::make_unique<UITapGestureRecognizer>(
      [](UIGestureRecognizer&) { throw std::runtime_error("tap failed on purpose"); }));

  click({200, 500});

  EXPECT_THAT(platform.log.lines,
              ElementsAre("[Frelta] Uncaught exception: tap failed on purpose"));
}

TEST_F(FailureTest, EachKindOfControlMayBeDestroyedByItsOwnEvent) {
  UIView& root = showPlain();
  auto* button = add(root, std::make_unique<UIButton>(), {0, 0, 100, 44});
  auto* toggle = add(root, std::make_unique<UISwitch>(), {0, 50, 51, 31});
  auto* segments =
      add(root, std::make_unique<UISegmentedControl>(std::vector<std::string>{"One", "Two"}),
          {0, 100, 200, 32});
  auto* slider = add(root, std::make_unique<UISlider>(), {0, 150, 200, 34});
  auto* field = add(root, std::make_unique<UITextField>(), {0, 200, 200, 30});
  destroyAt(*button, UIControlEventTouchUpInside);
  for (UIControl* control : std::vector<UIControl*>{toggle, segments, slider}) {
    destroyAt(*control, UIControlEventValueChanged);
  }
  destroyAt(*field, UIControlEventEditingChanged);

  click(*button);
  click(*toggle);
  click(*segments, 0.9);
  click(*slider, 0.8);
  click(*field);
  type("ab");
  settle();

  EXPECT_EQ(destroyed, 5);
  EXPECT_TRUE(root.subviews().empty());
}

TEST_F(FailureTest, ASegmentChosenByKeyMayDestroyTheControl) {
  UIView& root = showPlain();
  auto* segments =
      add(root, std::make_unique<UISegmentedControl>(std::vector<std::string>{"One", "Two"}),
          {0, 100, 200, 32});
  destroyAt(*segments, UIControlEventValueChanged);

  key(Qt::Key_Tab);
  key(Qt::Key_Right);

  EXPECT_EQ(destroyed, 1);
}

TEST_F(FailureTest, TheEndOfEditingMayDestroyTheField) {
  UIView& root = showPlain();
  auto* field = add(root, std::make_unique<UITextField>(), {0, 200, 200, 30});
  destroyAt(*field, UIControlEventEditingDidEnd);

  click(*field);
  key(Qt::Key_Return);

  EXPECT_EQ(destroyed, 1);
}

TEST_F(FailureTest, AClickMayReplaceTheWholeScreen) {
  auto navigation = std::make_shared<UINavigationController>();
  navigation->pushViewController(std::make_shared<PlainScreen>(), false);
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 3, ""}});
  screen->rows.selected = [&navigation](IndexPath) { navigation->popViewControllerAnimated(true); };
  navigation->pushViewController(screen, false);
  show(navigation);
  const QPoint row = pointIn(*screen->table().cellForRowAtIndexPath({0, 1}));
  const std::weak_ptr<UIViewController> watched = screen;
  screen.reset();

  click(row);

  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(navigation->viewControllers().size(), 1u);
}

TEST_F(FailureTest, AKeyMayReplaceTheWholeScreen) {
  auto navigation = std::make_shared<UINavigationController>();
  navigation->pushViewController(std::make_shared<PlainScreen>(), false);
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 3, ""}});
  screen->rows.selected = [&navigation](IndexPath) { navigation->popViewControllerAnimated(true); };
  navigation->pushViewController(screen, false);
  show(navigation);
  screen.reset();

  key(Qt::Key_Tab);
  key(Qt::Key_Tab);
  key(Qt::Key_Return);

  EXPECT_EQ(navigation->viewControllers().size(), 1u);
}

TEST_F(FailureTest, ARowMayReloadTheTableFromItsOwnClick) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 9, ""}});
  screen->rows.selected = [&screen](IndexPath) {
    screen->rows.sections[0].rows = 2;
    screen->table().reloadData();
    screen->table().layoutIfNeeded();
  };
  show(screen);

  click(*screen->table().cellForRowAtIndexPath({0, 5}));

  EXPECT_EQ(screen->table().indexPathsForVisibleRows().size(), 2u);
}

TEST_F(FailureTest, AWindowMayCloseWhileViewsWaitForTheirEnd) {
  UIView& root = showPlain();
  UIView* view = add(root, std::make_unique<UIView>(), {0, 0, 10, 10});
  auto* field = add(root, std::make_unique<UITextField>(), {0, 200, 200, 30});
  click(*field);

  view->removeFromSuperview().reset();
  window.reset();
  settle();

  EXPECT_THAT(platform.log.lines, testing::IsEmpty());
}

}  // namespace
}  // namespace frelta
