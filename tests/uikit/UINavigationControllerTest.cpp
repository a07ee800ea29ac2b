#include "uikit/UINavigationController.h"

#include "tests/uikit/KitTest.h"
#include "uikit/UITextField.h"

namespace frelta {
namespace {

class UINavigationControllerTest : public KitTest {
 protected:
  /// Notes what happens to it.
  class Screen : public UIViewController {
   public:
    Screen(std::vector<std::string>& events, std::string name)
        : events_(events), name_(std::move(name)) {
      setTitle(name_);
    }
    void viewDidLoad() override { note("loaded"); }
    void viewWillAppear(bool) override { note("will appear"); }
    void viewDidAppear(bool) override { note("did appear"); }
    void viewWillDisappear(bool) override { note("will disappear"); }
    void viewDidDisappear(bool) override { note("did disappear"); }

   private:
    void note(const std::string& event) { events_.push_back(name_ + " " + event); }
    std::vector<std::string>& events_;
    std::string name_;
  };

  UINavigationControllerTest() {
    navigation->view().setFrame({0, 0, 300, 500});
    navigation->pushViewController(first, false);
    navigation->view().layoutIfNeeded();
  }
  std::shared_ptr<Screen> screen(std::string name) {
    return std::make_shared<Screen>(events, std::move(name));
  }
  UINavigationBar& bar() { return navigation->navigationBar(); }

  std::vector<std::string> events;
  std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
  std::shared_ptr<Screen> first = screen("first");
};

TEST_F(UINavigationControllerTest, TheFirstScreenAppearsBelowTheBar) {
  EXPECT_THAT(events,
              testing::ElementsAre("first loaded", "first will appear", "first did appear"));
  EXPECT_EQ(first->view().frame(), CGRect(0, 44, 300, 456));
  EXPECT_EQ(first->navigationController(), navigation.get());
  EXPECT_EQ(bar().titleLabel()->text(), "first");
  EXPECT_TRUE(bar().backButton()->isHidden());
}

TEST_F(UINavigationControllerTest, APushTellsBothScreensInThePlatformsOrder) {
  events.clear();

  navigation->pushViewController(screen("second"), true);

  EXPECT_THAT(events,
              testing::ElementsAre("second loaded", "first will disappear", "second will appear",
                                   "first did disappear", "second did appear"));
}

TEST_F(UINavigationControllerTest, APopTellsBothScreensInThePlatformsOrder) {
  navigation->pushViewController(screen("second"), true);
  events.clear();

  navigation->popViewControllerAnimated(true);

  EXPECT_THAT(events, testing::ElementsAre("second will disappear", "first will appear",
                                           "second did disappear", "first did appear"));
}

TEST_F(UINavigationControllerTest, APoppedScreenIsTheCallersWithItsView) {
  auto second = screen("second");
  navigation->pushViewController(second, true);
  const UIView* view = &second->view();

  const auto popped = navigation->popViewControllerAnimated(true);

  EXPECT_EQ(popped, second);
  EXPECT_EQ(popped->navigationController(), nullptr);
  EXPECT_EQ(popped->takeView().get(), view);
  EXPECT_EQ(navigation->topViewController(), first.get());
  EXPECT_NE(first->view().superview(), nullptr);
}

TEST_F(UINavigationControllerTest, TheLastScreenStays) {
  events.clear();

  const auto popped = navigation->popViewControllerAnimated(true);

  EXPECT_EQ(popped, nullptr);
  EXPECT_EQ(navigation->viewControllers().size(), 1u);
  EXPECT_THAT(events, testing::IsEmpty());
}

TEST_F(UINavigationControllerTest, OnlyTheTopScreensViewIsInTheTree) {
  auto second = screen("second");

  navigation->pushViewController(second, true);
  navigation->view().layoutIfNeeded();

  EXPECT_EQ(first->view().superview(), nullptr);
  EXPECT_TRUE(second->view().isDescendantOfView(navigation->view()));
  EXPECT_EQ(second->view().frame(), CGRect(0, 44, 300, 456));
}

TEST_F(UINavigationControllerTest, TheWayBackHasTheTitleOfTheScreenBelow) {
  navigation->pushViewController(screen("second"), true);

  EXPECT_FALSE(bar().backButton()->isHidden());
  EXPECT_EQ(bar().backButton()->title(), "first");
  EXPECT_EQ(bar().backButton()->accessibility().label, "Back to first");
}

TEST_F(UINavigationControllerTest, TheWayBackToAScreenWithoutATitleHasAWord) {
  first->setTitle("");

  navigation->pushViewController(screen("second"), true);

  EXPECT_EQ(bar().backButton()->title(), "Back");
  EXPECT_EQ(bar().backButton()->accessibility().label, "Back");
}

TEST_F(UINavigationControllerTest, PressingTheWayBackPopsOnce) {
  navigation->pushViewController(screen("second"), true);
  navigation->pushViewController(screen("third"), true);

  bar().backButton()->sendActionsForControlEvents(UIControlEventTouchUpInside);

  EXPECT_EQ(navigation->viewControllers().size(), 2u);
}

TEST_F(UINavigationControllerTest, AScreenMayHideTheWayBack) {
  auto second = screen("second");
  navigation->pushViewController(second, true);

  second->navigationItem().setHidesBackButton(true);
  const bool hidden = bar().backButton()->isHidden();
  second->navigationItem().setHidesBackButton(false);

  EXPECT_TRUE(hidden);
  EXPECT_FALSE(bar().backButton()->isHidden());
}

TEST_F(UINavigationControllerTest, TheBarFollowsTheTopScreensTitleAlone) {
  auto second = screen("second");
  navigation->pushViewController(second, true);

  first->setTitle("not shown");
  const std::string title = bar().titleLabel()->text();
  second->setTitle("renamed");

  EXPECT_EQ(title, "second");
  EXPECT_EQ(bar().titleLabel()->text(), "renamed");
}

TEST_F(UINavigationControllerTest, AShortTitleStandsInTheMiddleBesideTheWayBack) {
  navigation->pushViewController(screen("second"), true);

  navigation->view().layoutIfNeeded();

  EXPECT_EQ(bar().titleLabel()->frame().midX(), 150);
  EXPECT_GT(bar().titleLabel()->frame().minX(), bar().backButton()->frame().maxX());
}

TEST_F(UINavigationControllerTest, LongTitlesStayWithinTheBarAndApart) {
  first->setTitle(std::string(100, 'a'));
  navigation->pushViewController(screen(std::string(100, 'b')), true);

  navigation->view().layoutIfNeeded();

  const CGRect back = bar().backButton()->frame();
  const CGRect title = bar().titleLabel()->frame();
  EXPECT_LE(back.size.width, 300 * 0.35);
  EXPECT_GE(title.minX(), back.maxX());
  EXPECT_LE(title.maxX(), 300);
  EXPECT_GT(title.size.width, 100);
}

TEST_F(UINavigationControllerTest, APushEndsTheEditingBelow) {
  UITextField* field = first->view().addSubview(std::make_unique<UITextField>());
  field->becomeFirstResponder();

  navigation->pushViewController(screen("second"), true);

  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(UINavigationControllerTest, ScreensOutliveTheStackWithTheirViews) {
  auto second = screen("second");
  navigation->pushViewController(second, true);

  navigation.reset();
  second->setTitle("still there");

  EXPECT_EQ(second->navigationController(), nullptr);
  EXPECT_EQ(second->view().superview(), nullptr);
  EXPECT_NE(second->takeView(), nullptr);
  EXPECT_NE(first->takeView(), nullptr);
}

}  // namespace
}  // namespace frelta
