#include "tests/selector/SelectorTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SelectorScreen : public SelectorTest {};

TEST_F(SelectorScreen, IsTitledAfterItsKind) {
  EXPECT_EQ(show(Selector::init())->title(), "Image Themes");
  EXPECT_EQ(show(Selector::initForHTML())->title(), "HTML Themes");
  EXPECT_EQ(show(Selector::initForWidget())->title(), "Widgets");
  const auto other = Selector::init();
  other->setIsExtras(7);
  EXPECT_EQ(show(other)->title(), "Image Themes");
}

TEST_F(SelectorScreen, IsATableWithoutLinesThatIsAlwaysEdited) {
  const auto selector = show(Selector::init());

  const UITableView& table = *selector->tableView();
  EXPECT_EQ(table.style(), UITableViewStyle::Plain);
  EXPECT_EQ(table.frame(), selector->view().bounds());
  EXPECT_EQ(table.estimatedRowHeight(), 130);
  EXPECT_EQ(table.separatorColor(), UIColor::clearColor());
  EXPECT_TRUE(table.isEditing());
  EXPECT_TRUE(table.allowsSelectionDuringEditing());
  EXPECT_EQ(selector->view().backgroundColor(), table.backgroundColor());
  EXPECT_EQ(table.autoresizingMask(),
            UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
}

TEST_F(SelectorScreen, KeepsItsGroundLikeTheTables) {
  const auto selector = show(Selector::init());
  const UIColor ground = UIColor::colorWithRed(0.1, 0.2, 0.3, 1.0);

  selector->tableView()->setBackgroundColor(ground);
  selector->view().setNeedsLayout();
  window.layoutIfNeeded();

  EXPECT_EQ(selector->view().backgroundColor(), ground);
}

TEST_F(SelectorScreen, IsFilledAndHasItsGroundOnceItIsLoaded) {
  install("A");
  const auto selector = Selector::init();
  EXPECT_TRUE(selector->sortedStyles().empty());

  UIView& view = selector->view();

  EXPECT_EQ(selector->sortedStyles().size(), 1U);
  EXPECT_EQ(view.backgroundColor(), UIColor::systemBackgroundColor());
  EXPECT_EQ(view.backgroundColor(), selector->tableView()->backgroundColor());
}

TEST_F(SelectorScreen, ListsTheStylesInTheLibrarySection) {
  install("A");
  install("B");

  const auto selector = show(Selector::init());

  EXPECT_EQ(selector->tableView()->numberOfSections(), 2);
  EXPECT_EQ(selector->tableView()->numberOfRowsInSection(0), 0);
  EXPECT_EQ(selector->tableView()->numberOfRowsInSection(1), 2);
  for (int row = 0; row < 2; ++row) {
    const auto& entry = selector->sortedStyles()[static_cast<std::size_t>(row)];
    EXPECT_EQ(cellAt(*selector, {1, row})->sortedStyleItem(), entry);
    EXPECT_EQ(cellAt(*selector, {1, row})->reuseIdentifier(), "FreltaStyleCell");
  }
}

TEST_F(SelectorScreen, IsAnEmptyTableWithoutStyles) {
  const auto selector = show(Selector::init());

  EXPECT_EQ(selector->tableView()->numberOfRowsInSection(1), 0);
  EXPECT_EQ(alert(), nullptr);
  EXPECT_EQ(platform.mainQueue.pending(), 0U);
}

TEST_F(SelectorScreen, ScansAgainEachTimeItAppears) {
  install("A");
  const auto selector = show(Selector::init());
  show(Selector::initForHTML());
  install("B");
  EXPECT_EQ(selector->sortedStyles().size(), 1U);

  navigation->popViewControllerAnimated(false);
  window.layoutIfNeeded();

  EXPECT_EQ(selector->tableView()->numberOfRowsInSection(1), 2);
}

TEST_F(SelectorScreen, IsEditedBeforeItScansAgain) {
  install("A");
  const auto selector = Selector::init();
  std::vector<bool> editedAtScan;
  platform.files.beforeCall = [&](const FailingFiles::Call& call) {
    if (call.operation == Operation::Contents)
      editedAtScan.push_back(selector->tableView()->isEditing());
  };

  show(selector);

  EXPECT_THAT(editedAtScan, ElementsAre(false, true));
  EXPECT_FALSE(cellAt(*selector, {1, 0})->isAnimating());
}

TEST_F(SelectorScreen, GivesEveryRow130PointsUnlessItIsAnOpenGroup) {
  const auto selector = show(Selector::init());
  const auto bare = std::make_shared<FreltaSortedItem>();
  bare->setIsExpanded(true);
  selector->setSortedStyles(
      {groupOf(3), groupOf(3, true), bare, style("A"), group({}, true), nullptr});
  const auto height = [&](int row) {
    return selector->heightForRowAtIndexPath(*selector->tableView(), {1, row});
  };

  for (int row = 0; row < 6; ++row) EXPECT_EQ(height(row), 130);
  selector->setIsGrouped(true);
  EXPECT_EQ(height(0), 130);
  EXPECT_EQ(height(1), 340);
  EXPECT_EQ(height(2), 130);
  EXPECT_EQ(height(3), 130);
  EXPECT_EQ(height(4), 130);
  EXPECT_EQ(height(5), 130);
}

TEST_F(SelectorScreen, ASecondTapOnARowClearsItsSelection) {
  install("A");
  install("B");
  const auto selector = show(Selector::init());
  UITableView& table = *selector->tableView();

  table.userDidSelectRowAtIndexPath({1, 1});
  EXPECT_EQ(table.indexPathForSelectedRow(), (IndexPath{1, 1}));
  table.userDidSelectRowAtIndexPath({1, 1});

  EXPECT_EQ(table.indexPathForSelectedRow(), std::nullopt);
}

TEST_F(SelectorScreen, HasRowsThatCannotBeDeletedOrMoved) {
  install("A");
  const auto selector = show(Selector::init());
  UITableView& table = *selector->tableView();

  EXPECT_EQ(selector->editingStyleForRowAtIndexPath(table, {1, 0}),
            UITableViewCellEditingStyle::None);
  EXPECT_FALSE(selector->shouldIndentWhileEditingRowAtIndexPath(table, {1, 0}));
  EXPECT_FALSE(selector->canMoveRowAtIndexPath(table, {1, 0}));
  EXPECT_EQ(cellAt(*selector, {1, 0})->editing(), UITableViewCellEditing());
}

TEST_F(SelectorScreen, IsNotPinned) {
  for (char name = 'A'; name < 'Z'; ++name) install(std::string(1, name));
  const auto selector = show(Selector::init());

  selector->tableView()->userDidScroll({0, 500});

  EXPECT_EQ(selector->tableView()->contentOffset(), (CGPoint{0, 500}));
}

TEST_F(SelectorScreen, ATapSwitchesItsStyleOnAndAllOthersOff) {
  for (const char* name : {"A", "B", "C"}) install(name);
  const auto selector = show(Selector::init());
  const auto path = [&](int row) {
    const auto& entry = selector->sortedStyles()[static_cast<std::size_t>(row)];
    return *static_cast<const FreltaSortedStyle&>(*entry).fullPath();
  };

  tapCard(*selector, 0);
  EXPECT_THAT(buttonTitles(*selector), ElementsAre("Disable", "Enable", "Enable"));
  EXPECT_EQ(settings()->at("EnabledThemePath"), path(0));
  tapCard(*selector, 2);

  EXPECT_THAT(buttonTitles(*selector), ElementsAre("Enable", "Enable", "Disable"));
  EXPECT_EQ(settings()->at("EnabledThemePath"), path(2));
  EXPECT_EQ(platform.notifications.posted.size(), 2U);
  tapCard(*selector, 2);
  EXPECT_THAT(buttonTitles(*selector), ElementsAre("Enable", "Enable", "Enable"));
  EXPECT_EQ(settings()->at("EnabledThemePath"), "");
}

TEST_F(SelectorScreen, ATapIsSeenToChangeTheButtonsOfBothStyles) {
  const auto shown = [](const Selector& selector, int row) {
    return cellAt(selector, {1, row})->headerView()->enableButton()->presentation().backgroundColor;
  };
  for (const char* name : {"A", "B", "C"}) install(name);
  const auto selector = show(Selector::init());
  tapCard(*selector, 0);
  platform.mainQueue.advance(1);
  const auto on = shown(*selector, 0);
  const auto off = shown(*selector, 1);
  ASSERT_NE(on, off);

  tapCard(*selector, 1);

  EXPECT_EQ(shown(*selector, 0), on);
  EXPECT_EQ(shown(*selector, 1), off);
  EXPECT_FALSE(cellAt(*selector, {1, 2})->headerView()->enableButton()->isAnimating());
  platform.mainQueue.advance(0.125);
  EXPECT_EQ(shown(*selector, 0), UIColor::colorBetween(*on, *off, 0.5));
  EXPECT_EQ(shown(*selector, 1), UIColor::colorBetween(*off, *on, 0.5));
  platform.mainQueue.advance(0.125);
  EXPECT_EQ(shown(*selector, 0), off);
  EXPECT_EQ(shown(*selector, 1), on);
}

TEST_F(SelectorScreen, ARescanShowsWhatItFindsAtOnce) {
  install("A");
  const auto selector = show(Selector::init());
  putSettings({{"EnabledThemePath", inThemes("A.theme")}});

  selector->loadStyles();
  selector->tableView()->reloadData();
  window.layoutIfNeeded();

  const FreltaToggleButton& button = *cellAt(*selector, {1, 0})->headerView()->enableButton();
  EXPECT_EQ(button.enabledState(), 2);
  EXPECT_FALSE(button.isAnimating());
}

TEST_F(SelectorScreen, CardsThatWaitForReuseFollowTheDesktopIntoTheDark) {
  platform.system.openWindows = {{true, UserInterfaceStyle::Light}};
  for (int i = 0; i < 20; ++i) install(std::to_string(i));
  const auto selector = show(Selector::init());
  UITableView& table = *selector->tableView();
  const auto scrollTo = [&](double y) {
    table.userDidScroll({0, y});
    window.layoutIfNeeded();
  };
  scrollTo(1e9);
  scrollTo(0);

  platform.system.openWindows = {{true, UserInterfaceStyle::Dark}};
  UIView::setAllNeedLayout();
  window.setNeedsLayout();
  window.layoutIfNeeded();

  const auto dark = [](const std::optional<UIColor>& color) {
    return color->componentsForStyle(UserInterfaceStyle::Dark);
  };
  const auto expected = dark(cellAt(*selector, {1, 0})->backgroundColor());
  EXPECT_LT(expected.alpha, 0.1);
  for (const double y : {0.0, 300.0, 700.0, 1'100.0, 1'500.0, 1e9}) {
    scrollTo(y);
    for (const IndexPath path : table.indexPathsForVisibleRows()) {
      const FreltaStyleContentsCell& header = *cellAt(*selector, path)->headerView();
      EXPECT_EQ(dark(header.contentView()->backgroundColor()), expected) << path.row;
      EXPECT_EQ(dark(header.enableButton()->backgroundColor()), expected) << path.row;
    }
  }
}

TEST_F(SelectorScreen, DecodesAnIconOncePerTimeItsRowComesOnScreen) {
  const std::string icon = UIImagePNGRepresentation(*picture(60, 60, kWhite)).value();
  for (int i = 0; i < 30; ++i) {
    install(std::to_string(i));
    platform.put(inThemes(std::to_string(i) + ".theme/Icon.png"), icon);
  }
  const auto decoded = [&] {
    return std::ranges::count_if(platform.files.calls(), [](const FailingFiles::Call& call) {
      return call.operation == Operation::Read && call.path.ends_with(".png");
    });
  };
  const auto selector = show(Selector::init());
  UITableView& table = *selector->tableView();
  EXPECT_EQ(decoded(), std::ssize(table.indexPathsForVisibleRows()));
  platform.files.resetCalls();

  std::ptrdiff_t came = 0;
  for (double y = 0; y < 2'400; y += 100) {
    const auto before = table.indexPathsForVisibleRows();
    table.userDidScroll({0, y});
    window.layoutIfNeeded();
    for (const IndexPath path : table.indexPathsForVisibleRows())
      came += std::ranges::count(before, path) == 0;
  }

  EXPECT_GT(came, 15);
  EXPECT_EQ(decoded(), came);
}

TEST_F(SelectorScreen, FlungRowsShowTheirOwnStyleOnly) {
  for (int i = 0; i < 100; ++i) install(std::to_string(i));
  const auto selector = show(Selector::init());
  tapCard(*selector, 2);
  UITableView& table = *selector->tableView();

  for (const double y : {4'000.0, 100.0, 11'000.0, 60.0, 7'777.0, 0.0}) {
    table.userDidScroll({0, y});
    window.layoutIfNeeded();

    for (const IndexPath path : table.indexPathsForVisibleRows()) {
      const FreltaStyleCell& cell = *cellAt(*selector, path);
      const auto& entry = selector->sortedStyles()[static_cast<std::size_t>(path.row)];
      const FreltaStyleContentsCell& header = *cell.headerView();
      EXPECT_EQ(cell.sortedStyleItem(), entry);
      EXPECT_EQ(header.headerLabel()->text(), entry->title());
      EXPECT_EQ(header.enableButton()->enabledState(), entry->enabledState());
      EXPECT_EQ(header.enableButton()->presentation().backgroundColor,
                header.enableButton()->backgroundColor());
      EXPECT_EQ(entry->enabledState() == 2, path.row == 2);
    }
  }
}

TEST_F(SelectorScreen, AsksWhatToCreateExceptForHTMLThemes) {
  const auto html = show(Selector::initForHTML());
  html->addButtonTapped();
  EXPECT_EQ(alert(), nullptr);

  show(Selector::init())->addButtonTapped();

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Create New");
  EXPECT_EQ(alert()->message(), "What type of style would you like to create?");
  std::vector<std::pair<std::string, UIAlertActionStyle>> actions;
  for (const auto& action : alert()->actions())
    actions.emplace_back(action->title(), action->style());
  EXPECT_THAT(actions, ElementsAre(std::pair("Standard", UIAlertActionStyle::Default),
                                   std::pair("Key Frames", UIAlertActionStyle::Default),
                                   std::pair("Cancel", UIAlertActionStyle::Cancel)));
  for (const std::size_t pressed : {0U, 1U, 2U}) {
    alert()->userDidPressAction(*alert()->actions()[pressed]);
    EXPECT_EQ(alert(), nullptr);
    show(Selector::initForWidget())->addButtonTapped();
    ASSERT_NE(alert(), nullptr);
  }
}

TEST_F(SelectorScreen, SaysLaterThatThereAreNoStylesAndLeaves) {
  const auto selector = show(Selector::init());

  selector->showNoStylesAlert();
  EXPECT_EQ(alert(), nullptr);
  platform.mainQueue.runPending();

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "No Styles");
  EXPECT_EQ(alert()->message(), "Create/Install styles.");
  ASSERT_EQ(alert()->actions().size(), 1U);
  EXPECT_EQ(alert()->actions()[0]->title(), "OK");
  EXPECT_EQ(alert()->actions()[0]->style(), UIAlertActionStyle::Default);
  alert()->userDidPressAction(*alert()->actions()[0]);
  EXPECT_EQ(navigation->viewControllers().size(), 1U);
}

TEST_F(SelectorScreen, LeavesAnimatedWhenThereAreNoStyles) {
  class Below : public UIViewController {
   public:
    void viewWillAppear(bool animated) override { appearances.push_back(animated); }
    std::vector<bool> appearances;
  };
  const auto below = std::make_shared<Below>();
  navigation->pushViewController(below, false);
  const auto selector = show(Selector::init());
  selector->showNoStylesAlert();
  platform.mainQueue.runPending();

  alert()->userDidPressAction(*alert()->actions()[0]);

  EXPECT_THAT(below->appearances, ElementsAre(false, true));
}

TEST_F(SelectorScreen, PresentsEveryAlertAnimated) {
  class NotingSelector : public FreltaThemeSelectorViewController {
   public:
    void presentViewController(std::shared_ptr<UIViewController> controller,
                               bool animated) override {
      presentedAnimated.push_back(animated);
      FreltaThemeSelectorViewController::presentViewController(std::move(controller), animated);
    }
    std::vector<bool> presentedAnimated;
  };
  const auto selector = initSelector<NotingSelector>(FreltaStyleModeImages);
  show(selector);
  FreltaStyleSubCell row({0, 0, 390, 80});
  const std::vector<std::function<void()>> asking = {
      [&] { selector->addButtonTapped(); }, [&] { selector->showNoStylesAlert(); },
      [&] { row.handleLongPress(*row.longPress()); }};

  for (const auto& ask : asking) {
    ask();
    platform.mainQueue.runPending();
    ASSERT_NE(alert(), nullptr);
    selector->dismissViewControllerAnimated(false);
    ASSERT_EQ(alert(), nullptr);
  }

  EXPECT_THAT(selector->presentedAnimated, ElementsAre(true, true, true));
}

TEST_F(SelectorScreen, PutsNoButtonInTheBar) {
  const auto selector = show(Selector::init());

  EXPECT_EQ(selector->navigationItem().rightBarButtonItem(), nullptr);
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

}  // namespace
}  // namespace frelta
