#include "preferences/PSEditableTableCell.h"
#include "preferences/PSSegmentTableCell.h"
#include "preferences/PSSwitchTableCell.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "tests/pages/PagesTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using RootPageScreenTest = PagesTest;

TEST_F(RootPageScreenTest, ThePagesNameTheirDescriptions) {
  freltaprefsRootListController root;
  freltaAdvancedprefsRootListController advanced;

  EXPECT_EQ(root.name(), "Root");
  EXPECT_EQ(advanced.name(), "Advanced");
}

TEST_F(RootPageScreenTest, AnotherNameLoadsAnotherDescription) {
  bundle.describe("Other", Dictionary{{"items", Array{row("PSSwitchCell", "A")}}});
  auto page = std::make_shared<freltaprefsRootListController>();
  page->setName("Other");

  show(page);

  EXPECT_THAT(identifiers(*page), ElementsAre("A"));
}

TEST_F(RootPageScreenTest, EveryBackgroundModeThatShowsARowHasItsSegment) {
  const auto segmentIn = [this](const PropertyListValue& mode) {
    putSettings({{"BackgroundMode", mode}});
    const auto page = showRoot();
    const auto* control = cell<PSSegmentTableCell>(*page, "BackgroundMode")->control();
    const int selected = control->selectedSegmentIndex();
    const bool widget = cell(*page, "FreltaWidgetCell") != nullptr;
    return std::pair(selected, widget);
  };

  EXPECT_EQ(segmentIn(3), std::pair(3, false));
  for (const int mode : {4, 5, 7, 2'147'483'647}) EXPECT_EQ(segmentIn(mode), std::pair(4, true));
  EXPECT_EQ(segmentIn(7.9), std::pair(4, true));
  EXPECT_EQ(segmentIn(-1), std::pair(UISegmentedControl::kNoSegment, false));
}

TEST_F(RootPageScreenTest, ThePageIsTheCurrentRootPageWhileItShows) {
  const auto before = freltaprefsRootListController::currentRootPage();
  const auto page = showRoot();
  const auto shown = freltaprefsRootListController::currentRootPage();

  navigation->pushViewController(std::make_shared<UIViewController>(), false);
  const auto covered = freltaprefsRootListController::currentRootPage();
  navigation->popViewControllerAnimated(false);

  EXPECT_EQ(before, nullptr);
  EXPECT_EQ(shown, page);
  EXPECT_EQ(covered, nullptr);
  EXPECT_EQ(freltaprefsRootListController::currentRootPage(), page);
}

TEST_F(RootPageScreenTest, TheAdvancedPageTakesOverFromTheRootPageAndGivesBack) {
  const auto root = showRoot();

  tap(*root, "Settings");
  layout();
  const auto shown = freltaprefsRootListController::currentRootPage();
  navigation->popViewControllerAnimated(false);

  ASSERT_TRUE(std::dynamic_pointer_cast<freltaAdvancedprefsRootListController>(shown));
  EXPECT_EQ(shown->title(), "Advanced");
  EXPECT_EQ(freltaprefsRootListController::currentRootPage(), root);
}

TEST_F(RootPageScreenTest, APageThatDisappearsLeavesNoCurrentRootPageWhicheverThatWas) {
  const auto shown = showRoot();
  const auto other = std::make_shared<freltaprefsRootListController>();

  other->viewWillDisappear(false);

  EXPECT_EQ(freltaprefsRootListController::currentRootPage(), nullptr);
}

TEST_F(RootPageScreenTest, ThePageIsTheCurrentRootPageBeforeItLoadsItsRowsAnew) {
  class LookingPage : public freltaprefsRootListController {
   public:
    const PSSpecifierList& specifiers() override {
      if (!specifiers_) wasCurrentAtLoad.push_back(currentRootPage().get() == this);
      return freltaprefsRootListController::specifiers();
    }
    std::vector<bool> wasCurrentAtLoad;
  };
  const auto page = std::make_shared<LookingPage>();
  page->setBundle(&bundle);

  page->view();
  page->viewWillAppear(false);

  EXPECT_THAT(page->wasCurrentAtLoad, ElementsAre(false, true));
}

TEST_F(RootPageScreenTest, TheCurrentRootPageIsHeldUntilItHasDisappeared) {
  std::weak_ptr<freltaprefsRootListController> held;
  {
    auto page = std::make_shared<freltaprefsRootListController>();
    page->setBundle(&bundle);
    page->viewWillAppear(false);
    held = page;
  }
  const bool heldWhileCurrent = !held.expired();

  held.lock()->viewWillDisappear(false);

  EXPECT_TRUE(heldWhileCurrent);
  EXPECT_TRUE(held.expired());
}

TEST_F(RootPageScreenTest, WhatASubPageChangedShowsOnReturn) {
  const auto page = showRoot();
  navigation->pushViewController(std::make_shared<UIViewController>(), false);
  putSettings({{"HideKeyCaps", 0}, {"BackgroundMode", 4}});

  navigation->popViewControllerAnimated(false);
  layout();

  EXPECT_FALSE(cell<PSSwitchTableCell>(*page, "HideKeyCaps")->control()->isOn());
  EXPECT_TRUE(cell(*page, "FreltaWidgetCell"));
}

TEST_F(RootPageScreenTest, ATapAnywhereEndsTheEditingAndStoresTheText) {
  describeRoot({row("PSEditTextCell", "A")});
  const auto page = showRoot();
  UITextField* field = cell<PSEditableTableCell>(*page, "A")->textField();
  field->becomeFirstResponder();
  field->userDidEdit("typed");
  ASSERT_EQ(page->view().gestureRecognizers().size(), 1u);
  UIGestureRecognizer& tap = *page->view().gestureRecognizers()[0];

  tap.recognize();

  EXPECT_TRUE(dynamic_cast<UITapGestureRecognizer*>(&tap));
  EXPECT_FALSE(tap.cancelsTouchesInView());
  EXPECT_FALSE(field->isFirstResponder());
  EXPECT_EQ(settingsFile().at("A"), PropertyListValue("typed"));
}

TEST_F(RootPageScreenTest, TheRespringRowKillsTheBackBoardAndWaitsForNothing) {
  const auto page = showRoot();

  tap(*page, "Respring");

  ASSERT_EQ(platform.processes.spawned.size(), 1u);
  EXPECT_EQ(platform.processes.spawned[0].path, "/usr/bin/killall");
  EXPECT_THAT(platform.processes.spawned[0].argumentVector,
              ElementsAre("killall", "-9", "backboardd"));
  // The footer's question is the only one.
  EXPECT_EQ(platform.processes.runs.size(), 1u);
}

TEST_F(RootPageScreenTest, TheProfileAndSupportRowsOpenTheirAddresses) {
  const auto page = showRoot();

  tap(*page, "Twitter");
  tap(*page, "Support");

  EXPECT_THAT(addresses.opened,
              ElementsAre("https://tarno.example/frelta", "https://tarno.example/frelta/support"));
}

TEST_F(RootPageScreenTest, AKindsRowOpensTheSelectorOfItsStylesWithAnimationAndLeadsBack) {
  class NotingPage : public freltaprefsRootListController {
   public:
    void viewWillDisappear(bool animated) override {
      wentAnimated.push_back(animated);
      freltaprefsRootListController::viewWillDisappear(animated);
    }
    std::vector<bool> wentAnimated;
  };
  const auto page = std::make_shared<NotingPage>();
  show(page);

  for (const auto& [mode, row, kind] : {std::tuple(3, "FreltaThemesCell", FreltaStyleModeImages),
                                        std::tuple(1, "FreltaHTMLCell", FreltaStyleModeHTML),
                                        std::tuple(4, "FreltaWidgetCell", FreltaStyleModeWidget)}) {
    putSettings({{"BackgroundMode", mode}});
    page->reloadSpecifiers();
    layout();
    page->navigationItem().setHidesBackButton(true);
    page->wentAnimated.clear();

    tap(*page, row);

    const auto* opened =
        dynamic_cast<FreltaThemeSelectorViewController*>(navigation->topViewController());
    ASSERT_TRUE(opened) << row;
    EXPECT_EQ(opened->isExtras(), kind);
    EXPECT_THAT(page->wentAnimated, ElementsAre(true));
    EXPECT_FALSE(page->navigationItem().hidesBackButton());
    navigation->popViewControllerAnimated(false);
  }
}

TEST_F(RootPageScreenTest, TheActionsDoNothingOnAPageThatHasNoneOfThem) {
  describe({row("PSButtonCell", "A", {{"action", "respring"}})});
  auto page = std::make_shared<TestPage>();
  show(page);

  tap(*page, "A");

  EXPECT_THAT(platform.processes.spawned, IsEmpty());
}

TEST_F(RootPageScreenTest, AMissingDescriptionIsAnEmptyPageAndOneLogLine) {
  bundle.resources.clear();

  const auto page = showRoot();

  EXPECT_TRUE(page->specifiers().empty());
  EXPECT_THAT(platform.log.lines,
              ElementsAre("[Frelta] loadSpecifiersFromPlistName Root: missing"));
}

}  // namespace
}  // namespace frelta
