#include <filesystem>

#include "pages/freltaprefsRootListController.h"
#include "tests/selector/SelectorTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SelectorFaults : public SelectorTest {
 protected:
  /// The second card is filled with a group that is open now.
  void showAndOpenTheSecondGroup(const std::shared_ptr<Selector>& selector) {
    show(selector);
    selector->setIsGrouped(true);
    const Group second = groupOf(2);
    selector->setSortedStyles({groupOf(1), second});
    selector->tableView()->reloadData();
    window.layoutIfNeeded();
    second->setIsExpanded(true);
    cellAt(*selector, {1, 1})->setSortedStyleItem(second);
  }
};

TEST_F(SelectorFaults, AnEmptyGroupIsAnExceptionThatLeavesTheRowsBeforeIt) {
  const auto selector = show(Selector::init());
  const Group good = groupOf(2);
  selector->setSortedStyles({good, groupOf(0)});
  selector->tableView()->reloadData();

  EXPECT_THROW(window.layoutIfNeeded(), std::out_of_range);

  ASSERT_NE(cellAt(*selector, {1, 0}), nullptr);
  EXPECT_EQ(cellAt(*selector, {1, 0})->sortedStyleItem(), good);
  EXPECT_EQ(cellAt(*selector, {1, 1}), nullptr);
  selector->setSortedStyles({good});
  selector->tableView()->reloadData();
  EXPECT_NO_THROW(window.layoutIfNeeded());
}

TEST_F(SelectorFaults, GroupsOfEverySizeHaveTheirHeightAndRows) {
  const auto bare = std::make_shared<FreltaSortedItem>();
  bare->setIsExpanded(true);

  const auto selector = showGroups({bare, groupOf(1, true), groupOf(2, true)});

  const std::vector<double> heights{130, 200, 270};
  for (int row = 0; row < 3; ++row) {
    const FreltaStyleCell& cell = *cellAt(*selector, {1, row});
    EXPECT_EQ(cell.frame().size.height, heights[static_cast<std::size_t>(row)]);
    EXPECT_EQ(cell.subCellsView() ? cell.subCellsView()->subviews().size() : 0,
              static_cast<std::size_t>(row));
  }
}

TEST_F(SelectorFaults, AGroupOfAThousandScrollsToItsEnd) {
  const auto selector = showGroups({groupOf(1'000, true), style("After")});
  UITableView& table = *selector->tableView();

  table.userDidScroll({0, 1e9});
  window.layoutIfNeeded();

  EXPECT_EQ(table.contentSize().height, 130 + 70 * 1'000 + 130);
  ASSERT_NE(cellAt(*selector, {1, 1}), nullptr);
  EXPECT_EQ(cellAt(*selector, {1, 1})->headerView()->headerLabel()->text(), "After");
}

TEST_F(SelectorFaults, AnOpenGroupThatIsReusedForAStyleLeavesNothingBehind) {
  const auto selector = showGroups({groupOf(2, true)});
  const auto* cell = cellAt(*selector, {1, 0});

  selector->setSortedStyles({style("Alone")});
  selector->tableView()->reloadData();
  window.layoutIfNeeded();

  ASSERT_EQ(cellAt(*selector, {1, 0}), cell);
  EXPECT_EQ(cell->subCellsView(), nullptr);
  EXPECT_EQ(cell->frame().size.height, 130);
  EXPECT_EQ(cell->headerView()->headerLabel()->text(), "Alone");
  EXPECT_EQ(cell->headerView()->headerLabel()->frame().minX(), 112);
}

TEST_F(SelectorFaults, ATapReachesTheStyleThatTheCellShowsNow) {
  install("A");
  install("B");
  const auto selector = show(Selector::init());
  FreltaToggleButton& button = *cellAt(*selector, {1, 0})->headerView()->enableButton();
  const auto first = selector->sortedStyles()[0];
  const auto second = selector->sortedStyles()[1];
  selector->setSortedStyles({second, first});
  selector->tableView()->reloadData();
  window.layoutIfNeeded();

  tap(button);

  EXPECT_EQ(second->enabledState(), 2);
  EXPECT_EQ(first->enabledState(), 0);
}

TEST_F(SelectorFaults, ATapOnACellThatWaitsForReuseShowsOff) {
  install("A");
  const auto selector = show(Selector::init());
  FreltaToggleButton& button = *cellAt(*selector, {1, 0})->headerView()->enableButton();
  selector->setSortedStyles({});
  selector->tableView()->reloadData();
  window.layoutIfNeeded();

  tap(button);

  EXPECT_THAT(platform.mainQueue.exceptions, IsEmpty());
  EXPECT_EQ(platform.notifications.posted.size(), 1U);
}

TEST_F(SelectorFaults, ATapOnAStyleWhoseFolderIsGoneStoresItsPath) {
  install("A");
  install("B");
  const auto selector = show(Selector::init());
  std::filesystem::remove_all(platform.hostPath(kThemesFolder));

  tapCard(*selector, 1);

  EXPECT_EQ(selector->sortedStyles()[1]->enabledState(), 2);
  EXPECT_EQ(selector->tableView()->numberOfRowsInSection(1), 2);
  EXPECT_THAT(buttonTitles(*selector), ElementsAre("Enable", "Disable"));
}

TEST_F(SelectorFaults, AnItemsTapMovesItsGroupToTheHeadOfTheEnabledSection) {
  const Group a = groupOf(2, true);
  const Group b = groupOf(2, true);
  const auto selector = showGroups({a, b});
  FreltaStyleCell* cell = cellAt(*selector, {1, 1});

  tap(*subCell(*cell, 0)->contentView()->enableButton());
  EXPECT_EQ(cell->headerView()->enableButton()->enabledState(), FreltaEnabledStatePartial);
  EXPECT_EQ(cellAt(*selector, {1, 1}), cell);
  platform.mainQueue.runPending();
  window.layoutIfNeeded();

  EXPECT_THAT(selector->enabledStyles(), ElementsAre(b));
  EXPECT_THAT(selector->sortedStyles(), ElementsAre(a));
  EXPECT_EQ(cellAt(*selector, {0, 0}), cell);
  EXPECT_EQ(cell->frame().minY(), 0);
  EXPECT_EQ(cell->presentation().frame.minY(), 270);
  platform.mainQueue.advance(0.3);
  EXPECT_EQ(cell->presentation().frame.minY(), 0);
  EXPECT_THAT(platform.log.lines, testing::Not(testing::Contains(testing::HasSubstr("reloaded"))));
}

TEST_F(SelectorFaults, ATapDuringTheMoveCounts) {
  const Group a = groupOf(2, true);
  const Group b = groupOf(2, true);
  const auto selector = showGroups({a, b});
  FreltaStyleCell* cell = cellAt(*selector, {1, 1});
  tap(*subCell(*cell, 0)->contentView()->enableButton());
  platform.mainQueue.runPending();
  platform.mainQueue.advance(0.1);

  tap(*subCell(*cell, 0)->contentView()->enableButton());
  platform.mainQueue.advance(1);
  window.layoutIfNeeded();

  EXPECT_THAT(selector->enabledStyles(), IsEmpty());
  EXPECT_THAT(selector->sortedStyles(), ElementsAre(b, a));
  EXPECT_EQ(cellAt(*selector, {1, 0}), cell);
  EXPECT_EQ(b->enabledState(), FreltaEnabledStateNone);
}

TEST_F(SelectorFaults, TwoTapsBeforeTheMoveMoveTheGroupOnce) {
  const Group a = groupOf(2, true);
  const auto selector = showGroups({groupOf(1), a});
  FreltaStyleCell* cell = cellAt(*selector, {1, 1});

  tap(*subCell(*cell, 0)->contentView()->enableButton());
  tap(*subCell(*cell, 1)->contentView()->enableButton());
  platform.mainQueue.advance(1);
  window.layoutIfNeeded();

  EXPECT_EQ(std::ranges::count(selector->enabledStyles(), a), 1);
  EXPECT_EQ(std::ranges::count(selector->sortedStyles(), a), 0);
}

TEST_F(SelectorFaults, TwoGroupsInOneTurnBothMoveAndTheTableFollows) {
  const Group a = groupOf(2, true);
  const Group b = groupOf(2, true);
  const auto selector = showGroups({a, b, groupOf(1)});
  const auto* cellOfA = cellAt(*selector, {1, 0});
  const auto* cellOfB = cellAt(*selector, {1, 1});

  tap(*subCell(*cellOfA, 0)->contentView()->enableButton());
  tap(*subCell(*cellOfB, 0)->contentView()->enableButton());
  platform.mainQueue.advance(1);
  window.layoutIfNeeded();

  EXPECT_THAT(selector->enabledStyles(), ElementsAre(b, a));
  EXPECT_EQ(cellAt(*selector, {0, 0}), cellOfB);
  EXPECT_EQ(cellAt(*selector, {0, 1}), cellOfA);
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(SelectorFaults, AGroupThatIsSwitchedOffScreenMovesToo) {
  FreltaStyleLibrary::Entries entries;
  for (int i = 0; i < 20; ++i) entries.push_back(groupOf(1));
  const auto selector = showGroups(entries);

  selector->setStyle(entries[15]->items()->at(0), true);
  platform.mainQueue.advance(1);
  window.layoutIfNeeded();

  EXPECT_THAT(selector->enabledStyles(), ElementsAre(entries[15]));
  EXPECT_EQ(cellAt(*selector, {0, 0})->sortedStyleItem(), entries[15]);
  EXPECT_EQ(cellAt(*selector, {1, 0})->sortedStyleItem(), entries[0]);
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(SelectorFaults, AMovedRowIsScrolledToTheTopAnimated) {
  FreltaStyleLibrary::Entries on;
  FreltaStyleLibrary::Entries off;
  for (int i = 0; i < 8; ++i) on.push_back(group({item("on", true)}));
  for (int i = 0; i < 8; ++i) off.push_back(groupOf(1));
  const auto selector = showGroups(off);
  selector->setEnabledStyles(on);
  selector->tableView()->reloadData();
  window.layoutIfNeeded();

  selector->setStyle(on[0]->items()->at(0), false);
  platform.mainQueue.runPending();

  // Seven enabled ones stay above it.
  EXPECT_EQ(selector->tableView()->targetContentOffset(), (CGPoint{0, 7 * 130}));
  EXPECT_LT(selector->tableView()->contentOffset().y, 7 * 130);
  platform.mainQueue.advance(1);
  EXPECT_EQ(selector->tableView()->contentOffset(), (CGPoint{0, 7 * 130}));
  EXPECT_EQ(cellAt(*selector, {1, 0})->sortedStyleItem(), on[0]);
}

TEST_F(SelectorFaults, AStyleThatIsSwitchedInCodeShowsInItsRowAndItsGroup) {
  const Group a = group({item("a", true), item("b")}, true);
  const auto selector = showGroups({});
  selector->setEnabledStyles({a});
  selector->tableView()->reloadData();
  window.layoutIfNeeded();
  const FreltaStyleCell& cell = *cellAt(*selector, {0, 0});

  selector->setStyle(a->items()->at(1), true);

  EXPECT_EQ(cell.headerView()->enableButton()->enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(subCell(cell, 1)->contentView()->enableButton()->enabledState(), FreltaEnabledStateAll);
}

TEST_F(SelectorFaults, AMoveInTheLibraryShowsTheEnabledSectionAsItBecomes) {
  const Group a = groupOf(1);
  const Group b = groupOf(1);
  const auto selector = showGroups({groupOf(1), groupOf(1)});
  selector->setEnabledStyles({a, b});
  selector->tableView()->reloadData();
  window.layoutIfNeeded();

  selector->moveRowAtIndexPath({1, 0}, {1, 1});
  platform.mainQueue.advance(1);
  window.layoutIfNeeded();

  EXPECT_THAT(selector->enabledStyles(), ElementsAre(b, a));
  EXPECT_EQ(cellAt(*selector, {0, 0})->sortedStyleItem(), b);
  EXPECT_EQ(cellAt(*selector, {0, 1})->sortedStyleItem(), a);
}

TEST_F(SelectorFaults, AQueuedMoveOutlivesThePoppedScreen) {
  const Group a = groupOf(2, true);
  const auto selector = showGroups({a});
  tap(*subCell(*cellAt(*selector, {1, 0}), 0)->contentView()->enableButton());

  navigation->popViewControllerAnimated(false);
  platform.mainQueue.advance(1);

  EXPECT_THAT(selector->enabledStyles(), ElementsAre(a));
  EXPECT_THAT(platform.mainQueue.exceptions, IsEmpty());
}

TEST_F(SelectorFaults, AQueuedMoveOutlivesTheStackAndTheNextSelector) {
  auto selector = showGroups({groupOf(2, true)});
  tap(*subCell(*cellAt(*selector, {1, 0}), 0)->contentView()->enableButton());
  navigation->popViewControllerAnimated(false);
  const std::weak_ptr<Selector> watch = selector;
  selector.reset();

  const auto next = show(Selector::initForHTML());
  EXPECT_FALSE(watch.expired());
  platform.mainQueue.advance(1);

  EXPECT_TRUE(watch.expired());
  EXPECT_THAT(platform.mainQueue.exceptions, IsEmpty());
}

TEST_F(SelectorFaults, AQueuedAlertOfAPoppedScreenIsNotShown) {
  const auto selector = show(Selector::init());
  selector->showNoStylesAlert();

  navigation->popViewControllerAnimated(false);
  platform.mainQueue.runPending();

  EXPECT_EQ(alert(), nullptr);
  EXPECT_THAT(platform.mainQueue.exceptions, IsEmpty());
}

TEST_F(SelectorFaults, RowsGoToTheSelectorInitialisedLast) {
  install("A");
  const auto older = show(Selector::init());
  const auto newer = Selector::initForWidget();

  tapCard(*older, 0);

  EXPECT_EQ(Selector::current(), newer);
  EXPECT_FALSE(settings()->contains("EnabledThemePath"));
  EXPECT_EQ(settings()->at("EnabledWidgetPath"), inThemes("A.theme"));
}

TEST_F(SelectorFaults, TheRootPagesActionsOpenTheThreeSelectors) {
  const auto root = std::make_shared<freltaprefsRootListController>();
  const auto opened = [&](void (freltaprefsRootListController::*action)()) {
    root->setNavigationController(navigation.get());
    root->navigationItem().setHidesBackButton(true);
    ((*root).*action)();
    EXPECT_FALSE(root->navigationItem().hidesBackButton());
    EXPECT_EQ(navigation->topViewController(), Selector::current().get());
    return navigation->topViewController()->title();
  };

  EXPECT_EQ(opened(&freltaprefsRootListController::selectTheme), "Image Themes");
  EXPECT_EQ(opened(&freltaprefsRootListController::selectHTML), "HTML Themes");
  EXPECT_EQ(opened(&freltaprefsRootListController::selectWidget), "Widgets");
}

TEST_F(SelectorFaults, AnOpenGroupSelectsItsRowOnceItIsShownAgain) {
  const Group a = groupOf(2, true);
  const auto selector = showGroups({groupOf(1), a});
  FreltaStyleCell* cell = cellAt(*selector, {1, 1});

  cell->setSortedStyleItem(a);

  EXPECT_EQ(selector->tableView()->indexPathForSelectedRow(), (IndexPath{1, 1}));
}

TEST_F(SelectorFaults, AnOpenGroupThatIsShownAgainGetsItsHeightAndDoesNotScroll) {
  FreltaStyleLibrary::Entries entries;
  for (int i = 0; i < 12; ++i) entries.push_back(groupOf(2));
  const auto selector = showGroups(entries);
  UITableView& table = *selector->tableView();
  table.userDidScroll({0, 300});
  window.layoutIfNeeded();
  entries[5]->setIsExpanded(true);

  cellAt(*selector, {1, 5})->setSortedStyleItem(entries[5]);
  platform.mainQueue.advance(1);

  EXPECT_EQ(table.indexPathForSelectedRow(), (IndexPath{1, 5}));
  EXPECT_EQ(table.rectForRowAtIndexPath({1, 5}).size.height, 270);
  EXPECT_EQ(cellAt(*selector, {1, 5})->frame().size.height, 270);
  EXPECT_EQ(table.contentOffset(), (CGPoint{0, 300}));
}

/// Keeps the rows that it is told of, and which one was selected then.
class ToldSelector : public FreltaThemeSelectorViewController {
 public:
  void didSelectRowAtIndexPath(UITableView& table, IndexPath path) override {
    selections.emplace_back(path, table.indexPathForSelectedRow());
  }
  void didDeselectRowAtIndexPath(UITableView& table, IndexPath path) override {
    deselections.emplace_back(path, table.indexPathForSelectedRow());
  }
  std::vector<std::pair<IndexPath, std::optional<IndexPath>>> selections;
  std::vector<std::pair<IndexPath, std::optional<IndexPath>>> deselections;
};

TEST_F(SelectorFaults, ASecondTapTellsTheScreenOnceItHasClearedTheSelection) {
  install("A");
  const auto selector = initSelector<ToldSelector>(FreltaStyleModeImages);
  show(selector);

  selector->tableView()->userDidSelectRowAtIndexPath({1, 0});
  selector->tableView()->userDidSelectRowAtIndexPath({1, 0});

  EXPECT_EQ(selector->selections.size(), 1U);
  EXPECT_THAT(selector->deselections, ElementsAre(std::pair(IndexPath{1, 0}, std::nullopt)));
}

TEST_F(SelectorFaults, AnOpenGroupTellsTheScreenOfItsRowBeforeItSelectsIt) {
  const auto selector = initSelector<ToldSelector>(FreltaStyleModeImages);

  showAndOpenTheSecondGroup(selector);

  EXPECT_THAT(selector->selections, ElementsAre(std::pair(IndexPath{1, 1}, std::nullopt)));
}

TEST_F(SelectorFaults, AnOpenGroupTellsAndSelectsItsRowWithinOneUpdateOfTheTable) {
  class AskedSelector : public FreltaThemeSelectorViewController {
   public:
    int numberOfRowsInSection(UITableView& table, int section) override {
      selectedWhenAsked.push_back(table.indexPathForSelectedRow());
      return FreltaThemeSelectorViewController::numberOfRowsInSection(table, section);
    }
    void didSelectRowAtIndexPath(UITableView& table, IndexPath) override {
      selectedWhenAsked.clear();
      table.reloadSections({0});
      askedWhenTold = selectedWhenAsked.size();
    }
    std::vector<std::optional<IndexPath>> selectedWhenAsked;
    std::size_t askedWhenTold = 9;
  };
  const auto selector = initSelector<AskedSelector>(FreltaStyleModeImages);

  showAndOpenTheSecondGroup(selector);

  EXPECT_EQ(selector->askedWhenTold, 0U);
  EXPECT_THAT(selector->selectedWhenAsked, ElementsAre(IndexPath{1, 1}, IndexPath{1, 1}));
}

TEST_F(SelectorFaults, ARowThatWasShownAloneOpensOnceTheSelectorGroups) {
  const auto selector = show(Selector::init());
  selector->setSortedStyles({groupOf(2, true)});
  selector->tableView()->reloadData();
  window.layoutIfNeeded();
  const auto* cell = cellAt(*selector, {1, 0});
  ASSERT_EQ(cell->subCellsView(), nullptr);

  selector->setIsGrouped(true);
  selector->tableView()->reloadData();
  window.layoutIfNeeded();

  ASSERT_EQ(cellAt(*selector, {1, 0}), cell);
  ASSERT_NE(cell->subCellsView(), nullptr);
  EXPECT_EQ(cell->subCellsView()->subviews().size(), 2U);
}

TEST_F(SelectorFaults, ARowThatIsScrolledAwayHasNoPlace) {
  FreltaStyleLibrary::Entries entries;
  for (int i = 0; i < 20; ++i) entries.push_back(groupOf(1));
  const auto selector = showGroups(entries);

  EXPECT_EQ(selector->indexPathForSortedStyle(entries[2]), (IndexPath{1, 2}));
  EXPECT_EQ(selector->indexPathForStyle(entries[2]->items()->at(0)), (IndexPath{1, 2}));
  // It has a cell, kept ready below the screen.
  ASSERT_NE(cellAt(*selector, {1, 7}), nullptr);
  EXPECT_EQ(selector->indexPathForSortedStyle(entries[7]), std::nullopt);
}

TEST_F(SelectorFaults, ARowThatOnlyTouchesTheScreensEdgeHasNoPlace) {
  FreltaStyleLibrary::Entries entries;
  for (int i = 0; i < 20; ++i) entries.push_back(groupOf(1));
  const auto selector = showGroups(entries);
  UITableView& table = *selector->tableView();
  const auto hasPlaceAt = [&](double y, std::size_t row) {
    table.userDidScroll({0, y});
    window.layoutIfNeeded();
    return selector->indexPathForSortedStyle(entries[row]).has_value();
  };

  EXPECT_FALSE(hasPlaceAt(130, 0));
  EXPECT_TRUE(hasPlaceAt(129, 0));
  const double endOfRowNine = 10 * 130 - table.bounds().size.height;
  EXPECT_FALSE(hasPlaceAt(endOfRowNine, 10));
  EXPECT_TRUE(hasPlaceAt(endOfRowNine + 1, 10));
}

}  // namespace
}  // namespace frelta
