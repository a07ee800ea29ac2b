#include "uikit/UIAlertController.h"

#include "fake/FakePlatform.h"
#include "tests/uikit/KitTest.h"
#include "uikit/UIAlertControllerView.h"
#include "uikit/UIWindow.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using enum UIAlertActionStyle;

class UIAlertControllerTest : public KitTest {
 protected:
  UIAlertControllerTest() {
    window.setFrame({0, 0, 400, 600});
    window.setRootViewController(screen);
  }

  std::shared_ptr<UIAlertController> makeAlert(
      std::initializer_list<std::pair<const char*, UIAlertActionStyle>> actions) {
    auto alert = UIAlertController::alertControllerWithTitle("Title", "Message");
    for (const auto& [title, style] : actions) {
      alert->addAction(UIAlertAction::actionWithTitle(
          title, style, [this](UIAlertAction& action) { pressed.push_back(action.title()); }));
    }
    return alert;
  }
  static std::string titleOf(const UIAlertAction* action) {
    return action ? action->title() : "none";
  }

  FakePlatform platform;
  std::vector<std::string> pressed;
  std::shared_ptr<UIViewController> screen = std::make_shared<UIViewController>();
  UIWindow window;
};

TEST_F(UIAlertControllerTest, ClosesBeforeItsActionRunsSoThatTheNextAlertMayBePresented) {
  const auto next = makeAlert({{"OK", Default}});
  auto alert = UIAlertController::alertControllerWithTitle("Title", "Message");
  alert->addAction(UIAlertAction::actionWithTitle("Go", Default, [&](UIAlertAction&) {
    EXPECT_EQ(screen->presentedViewController(), nullptr);
    screen->presentViewController(next, true);
  }));
  screen->presentViewController(alert, true);

  alert->userDidPressAction(*alert->actions()[0]);

  EXPECT_THAT(window.presentedViewControllers(), ElementsAre(next));
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(UIAlertControllerTest, TheButtonThatTheReturnKeyPressesStandsOut) {
  const std::vector<std::pair<std::shared_ptr<UIAlertController>, std::string>> alerts{
      {makeAlert({{"Cancel", Cancel}, {"Done", Default}}), "Done"},
      {makeAlert({{"Confirm", Destructive}, {"Cancel", Cancel}}), "Cancel"},
      {makeAlert({{"Import", Default}, {"Create", Default}, {"Cancel", Cancel}}), "Import"},
      {makeAlert({{"OK", Cancel}}), "OK"},
      {makeAlert({{"One", Destructive}, {"Other", Destructive}}), ""}};
  for (const auto& [alert, expected] : alerts) {
    std::string bold;

    for (const UIButton* button : static_cast<UIAlertControllerView&>(alert->view()).buttons()) {
      if (button->titleFont().weight != UIFont::Weight::Regular) bold += button->title().value();
    }

    EXPECT_EQ(bold, expected);
  }
}

TEST_F(UIAlertControllerTest, PerformsAnActionOnceAndOnlyWhileItIsShown) {
  const auto alert = makeAlert({{"OK", Default}});

  alert->userDidPressAction(*alert->actions()[0]);
  EXPECT_THAT(pressed, IsEmpty());
  screen->presentViewController(alert, true);
  alert->userDidPressAction(*alert->actions()[0]);
  alert->userDidPressAction(*alert->actions()[0]);

  EXPECT_THAT(pressed, ElementsAre("OK"));
}

TEST_F(UIAlertControllerTest, ASecondPresentationFromTheSameScreenIsRefusedWithALineInTheLog) {
  const auto first = makeAlert({{"OK", Default}});
  screen->presentViewController(first, true);

  screen->presentViewController(makeAlert({{"OK", Default}}), true);

  EXPECT_THAT(window.presentedViewControllers(), ElementsAre(first));
  EXPECT_THAT(platform.log.lines,
              ElementsAre("[Frelta] presentViewController refused: something else is presented"));
}

TEST_F(UIAlertControllerTest, TheOneInFrontMayPresentAndIsDismissedWithWhatItPresented) {
  const auto first = makeAlert({{"OK", Default}});
  const auto second = makeAlert({{"OK", Default}});
  screen->presentViewController(first, true);

  first->presentViewController(second, true);
  EXPECT_THAT(window.presentedViewControllers(), ElementsAre(first, second));
  EXPECT_EQ(first->presentedViewController(), second.get());
  EXPECT_EQ(second->presentingViewController(), first.get());
  screen->dismissViewControllerAnimated(true);

  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
}

TEST_F(UIAlertControllerTest, AScreenInNoWindowPresentsNothing) {
  const auto elsewhere = std::make_shared<UIViewController>();

  elsewhere->presentViewController(makeAlert({{"OK", Default}}), true);

  EXPECT_THAT(platform.log.lines,
              ElementsAre("[Frelta] presentViewController refused: the screen is in no window"));
}

TEST_F(UIAlertControllerTest, ReturnMeansTheFirstDefaultActionAndNeverADestructiveOne) {
  EXPECT_EQ(titleOf(makeAlert({{"No", Cancel}, {"A", Default}, {"B", Default}})->defaultAction()),
            "A");
  EXPECT_EQ(titleOf(makeAlert({{"Confirm", Destructive}, {"No", Cancel}})->defaultAction()), "No");
  EXPECT_EQ(titleOf(makeAlert({{"A", Destructive}, {"B", Destructive}})->defaultAction()), "none");
}

TEST_F(UIAlertControllerTest, EscapeMeansTheCancelActionOrTheOnlyOne) {
  EXPECT_EQ(titleOf(makeAlert({{"A", Default}, {"No", Cancel}})->cancelAction()), "No");
  EXPECT_EQ(titleOf(makeAlert({{"OK", Default}})->cancelAction()), "OK");
  EXPECT_EQ(titleOf(makeAlert({{"A", Default}, {"B", Default}})->cancelAction()), "none");
}

TEST_F(UIAlertControllerTest, EditsItsFirstFieldWhileItIsShown) {
  const auto alert = makeAlert({{"OK", Default}});
  for (const char* placeholder : {"one", "two"}) {
    alert->addTextFieldWithConfigurationHandler(
        [&](UITextField& field) { field.setPlaceholder(placeholder); });
  }
  screen->presentViewController(alert, true);

  ASSERT_THAT(alert->textFields(), SizeIs(2));
  EXPECT_EQ(alert->textFields()[1]->placeholder(), "two");
  EXPECT_TRUE(alert->textFields()[0]->isFirstResponder());
  alert->dismissViewControllerAnimated(true);
  EXPECT_FALSE(alert->textFields()[0]->isFirstResponder());
}

TEST_F(UIAlertControllerTest, TwoShortButtonsStandSideBySideInTheirOrder) {
  const auto alert = makeAlert({{"Save", Default}, {"Cancel", Cancel}});
  screen->presentViewController(alert, true);
  window.layoutIfNeeded();

  const auto& view = dynamic_cast<UIAlertControllerView&>(alert->view());
  EXPECT_EQ(view.buttons()[0]->frame().minY(), view.buttons()[1]->frame().minY());
  EXPECT_EQ(view.buttons()[0]->frame().maxX(), view.buttons()[1]->frame().minX());
  EXPECT_EQ(view.card()->frame().midX(), 200);
  EXPECT_EQ(view.card()->frame().midY(), 300);
  EXPECT_EQ(view.buttons()[0]->frame().maxY(), view.card()->frame().size.height);
}

TEST_F(UIAlertControllerTest, LongOrManyButtonsStandBelowEachOther) {
  for (const auto& alert : {makeAlert({{"A title that is too long", Default}, {"Done", Cancel}}),
                            makeAlert({{"A", Default}, {"B", Default}, {"C", Cancel}})}) {
    screen->presentViewController(alert, true);
    window.layoutIfNeeded();

    const auto& view = dynamic_cast<UIAlertControllerView&>(alert->view());
    for (std::size_t i = 1; i < view.buttons().size(); ++i)
      EXPECT_EQ(view.buttons()[i]->frame().minY(), view.buttons()[i - 1]->frame().maxY());
    screen->dismissViewControllerAnimated(false);
  }
}

TEST_F(UIAlertControllerTest, AMessageThatIsTooLongGetsTheRoomThatIsLeft) {
  auto alert = UIAlertController::alertControllerWithTitle("T", std::string(100'000, 'x'));
  alert->addAction(UIAlertAction::actionWithTitle("OK", Cancel));
  screen->presentViewController(alert, true);
  window.layoutIfNeeded();

  const auto& view = dynamic_cast<UIAlertControllerView&>(alert->view());
  EXPECT_GE(view.card()->frame().minY(), 10);
  EXPECT_LT(view.card()->frame().minY(), 10 + 16) << "room for another line is left";
  EXPECT_LE(view.messageView()->frame().maxY(), view.buttons()[0]->frame().minY());
}

}  // namespace
}  // namespace frelta
