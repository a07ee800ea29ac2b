#include "tests/styles/StylesTest.h"

namespace frelta {
namespace {

class StyleMoves : public StylesTest {
 protected:
  StyleMoves() { selector->setStyleTable(&table); }

  static std::shared_ptr<FreltaSortedItem> group(int items) {
    auto entry = std::make_shared<FreltaSortedItem>();
    entry->setItems(std::make_shared<std::vector<std::shared_ptr<FreltaStyleItem>>>());
    for (int i = 0; i < items; ++i) entry->items()->push_back(std::make_shared<FreltaStyleItem>());
    entry->updateEnabledState();
    return entry;
  }

  RecordingTable table;
  std::shared_ptr<TestSelector> selector = initSelector<TestSelector>(FreltaStyleModeImages);
  std::shared_ptr<FreltaSortedItem> a = group(2);
  std::shared_ptr<FreltaSortedItem> b = group(2);
  std::shared_ptr<FreltaSortedItem> c = group(1);
};

TEST_F(StyleMoves, EnablingAnItemMovesItsGroupToTheHeadOfTheEnabledSectionLater) {
  selector->setSortedStyles({a, b});
  selector->setEnabledStyles({c});
  table.cells = {{c, IndexPath{0, 0}}, {nullptr, IndexPath{1, 0}}, {b, IndexPath{1, 1}}};

  selector->setStyle(b->items()->at(1), true);

  EXPECT_EQ(b->enabledState(), FreltaEnabledStatePartial);
  EXPECT_THAT(table.did, testing::ElementsAre("header 1.1", "sub cells 1.1"));
  EXPECT_THAT(selector->sortedStyles(), testing::ElementsAre(a, b));
  platform.mainQueue.runPending();
  EXPECT_THAT(selector->sortedStyles(), testing::ElementsAre(a));
  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(b, c));
  EXPECT_THAT(table.did, testing::ElementsAre("header 1.1", "sub cells 1.1", "begin",
                                              "move 1.1 to 0.0", "end", "scroll to 0.0"));
  EXPECT_THAT(platform.files.calls(), testing::IsEmpty());
  EXPECT_THAT(platform.notifications.posted, testing::IsEmpty());
}

TEST_F(StyleMoves, DisablingTheLastItemMovesTheGroupToTheHeadOfTheLibraryLater) {
  c->items()->at(0)->setIsEnabled(true);
  selector->setSortedStyles({a});
  selector->setEnabledStyles({b, c});
  table.cells = {{b, IndexPath{0, 0}}, {c, IndexPath{0, 1}}};

  selector->setStyle(c->items()->at(0), false);
  platform.mainQueue.runPending();

  EXPECT_EQ(c->enabledState(), FreltaEnabledStateNone);
  EXPECT_THAT(selector->sortedStyles(), testing::ElementsAre(c, a));
  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(b));
  EXPECT_THAT(table.did, testing::ElementsAre("header 0.1", "sub cells 0.1", "begin",
                                              "move 0.1 to 1.0", "end", "scroll to 1.0"));
}

TEST_F(StyleMoves, AGroupThatStaysInItsSectionDoesNotMove) {
  a->items()->at(0)->setIsEnabled(true);
  selector->setSortedStyles({b});
  selector->setEnabledStyles({a});
  table.cells = {{a, IndexPath{0, 0}}, {b, IndexPath{1, 0}}};

  selector->setStyle(a->items()->at(1), true);
  selector->setStyle(b->items()->at(0), false);

  EXPECT_EQ(platform.mainQueue.pending(), 0U);
  EXPECT_EQ(a->enabledState(), FreltaEnabledStateAll);
}

TEST_F(StyleMoves, WithoutTheUpdateOnlyTheItemChanges) {
  selector->setSortedStyles({a});
  table.cells = {{a, IndexPath{1, 0}}};

  selector->setStyle(a->items()->at(0), true, false);

  EXPECT_TRUE(a->items()->at(0)->isEnabled());
  EXPECT_EQ(a->enabledState(), FreltaEnabledStateNone);
  EXPECT_THAT(table.did, testing::IsEmpty());
  EXPECT_EQ(platform.mainQueue.pending(), 0U);
}

TEST_F(StyleMoves, AnItemOfNoGroupJustChanges) {
  const auto stray = std::make_shared<FreltaStyleItem>();
  selector->setSortedStyles({a, std::make_shared<FreltaSortedItem>()});

  selector->setStyle(stray, true);
  selector->setStyle(nullptr, true);

  EXPECT_TRUE(stray->isEnabled());
  EXPECT_EQ(platform.mainQueue.pending(), 0U);
}

TEST_F(StyleMoves, AGroupThatIsScrolledAwayMovesFromItsPlaceInTheList) {
  selector->setSortedStyles({c, a});

  selector->setStyle(a->items()->at(0), true);
  platform.mainQueue.runPending();

  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(a));
  EXPECT_THAT(table.did, testing::ElementsAre("begin", "move 1.1 to 0.0", "end", "scroll to 0.0"));
}

TEST_F(StyleMoves, OfTwoInOneTurnTheSecondMovesFromWhereTheFirstLeftIt) {
  selector->setSortedStyles({a, b});
  table.cells = {{a, IndexPath{1, 0}}, {b, IndexPath{1, 1}}};

  selector->setStyle(a->items()->at(0), true);
  selector->setStyle(b->items()->at(0), true);
  table.did.clear();
  platform.mainQueue.runPending();

  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(b, a));
  EXPECT_THAT(table.did, testing::ElementsAre("begin", "move 1.0 to 0.0", "end", "scroll to 0.0",
                                              "begin", "move 1.0 to 0.0", "end", "scroll to 0.0"));
}

TEST_F(StyleMoves, AGroupsDeferredMoveKeepsTheSelectorAndTheGroupAlive) {
  selector->setSortedStyles({a});
  selector->setStyle(a->items()->at(0), true);
  selector->setSortedStyles({});
  std::weak_ptr<FreltaStyleLibrary> selectorWatch = selector;
  std::weak_ptr<FreltaSortedItem> groupWatch = a;

  setCurrentSelector(nullptr);
  selector.reset();
  a.reset();

  EXPECT_FALSE(selectorWatch.expired());
  EXPECT_FALSE(groupWatch.expired());
  platform.mainQueue.runPending();
  EXPECT_TRUE(selectorWatch.expired());
  EXPECT_TRUE(groupWatch.expired());
  EXPECT_THAT(platform.mainQueue.exceptions, testing::IsEmpty());
}

TEST_F(StyleMoves, ARowsDeferredMoveKeepsTheSelectorAlive) {
  selector->setEnabledStyles({a, b});
  selector->moveRowAtIndexPath({0, 0}, {0, 1});
  std::weak_ptr<FreltaStyleLibrary> selectorWatch = selector;

  setCurrentSelector(nullptr);
  selector.reset();

  EXPECT_FALSE(selectorWatch.expired());
  platform.mainQueue.runPending();
  EXPECT_TRUE(selectorWatch.expired());
  EXPECT_THAT(platform.mainQueue.exceptions, testing::IsEmpty());
}

TEST_F(StyleMoves, MovesWithoutATableChangeTheLists) {
  selector->setStyleTable(nullptr);
  selector->setSortedStyles({a});
  selector->setEnabledStyles({b, c});

  selector->setStyle(a->items()->at(0), true);
  selector->moveRowAtIndexPath({0, 0}, {0, 2});
  selector->setStyleGroup(c, false);
  platform.mainQueue.runPending();

  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(b, c, a));
  EXPECT_EQ(selector->indexPathForSortedStyle(a), std::nullopt);
  EXPECT_EQ(selector->indexPathForStyle(a->items()->at(0)), std::nullopt);
}

TEST_F(StyleMoves, AMovedRowTakesItsEntryAlongInTheEnabledSectionLater) {
  selector->setSortedStyles({a});
  selector->setEnabledStyles({a, b, c});

  selector->moveRowAtIndexPath({1, 0}, {1, 2});

  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(a, b, c));
  platform.mainQueue.runPending();
  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(b, c, a));
  EXPECT_THAT(selector->sortedStyles(), testing::ElementsAre(a));
  EXPECT_THAT(table.did,
              testing::ElementsAre("begin", "move 1.0 to 1.2", "end", "reload section 0"));
}

TEST_F(StyleMoves, ARowMayMoveToTheHeadOfItsSection) {
  selector->setEnabledStyles({a, b, c});

  selector->moveRowAtIndexPath({0, 2}, {0, 0});
  platform.mainQueue.runPending();

  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(c, a, b));
  EXPECT_THAT(platform.mainQueue.exceptions, testing::IsEmpty());
}

TEST_F(StyleMoves, TheListsChangeBetweenTheBeginningOfTheUpdatesAndTheMove) {
  class ListsTable : public RecordingTable {
   public:
    explicit ListsTable(const FreltaStyleLibrary& shown) : library(shown) {}
    void beginUpdates() override { firstAtBegin.push_back(library.enabledStyles().at(0)); }
    void moveRowAtIndexPath(IndexPath, IndexPath) override {
      firstAtMove.push_back(library.enabledStyles().at(0));
    }
    const FreltaStyleLibrary& library;
    FreltaStyleLibrary::Entries firstAtBegin;
    FreltaStyleLibrary::Entries firstAtMove;
  } lists(*selector);
  selector->setStyleTable(&lists);
  selector->setSortedStyles({a});
  selector->setEnabledStyles({b, c});
  lists.cells = {{a, IndexPath{1, 0}}};

  selector->setStyle(a->items()->at(0), true);
  selector->moveRowAtIndexPath({0, 0}, {0, 2});
  platform.mainQueue.runPending();

  EXPECT_THAT(lists.firstAtBegin, testing::ElementsAre(b, a));
  EXPECT_THAT(lists.firstAtMove, testing::ElementsAre(a, b));
}

TEST_F(StyleMoves, AMoveRemovesEveryOccurrenceOfTheEntry) {
  selector->setEnabledStyles({a, b, a});

  selector->moveRowAtIndexPath({0, 2}, {0, 1});
  platform.mainQueue.runPending();

  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(b, a));
}

TEST_F(StyleMoves, AGroupThatChangesSectionLeavesTheOldOneWithEveryOccurrence) {
  selector->setSortedStyles({a, b, a});
  selector->setStyle(a->items()->at(0), true);
  platform.mainQueue.runPending();
  const auto leftInLibrary = selector->sortedStyles();
  const auto enabled = selector->enabledStyles();
  selector->setEnabledStyles({a, c, a});

  selector->setStyle(a->items()->at(0), false);
  platform.mainQueue.runPending();

  EXPECT_THAT(leftInLibrary, testing::ElementsAre(b));
  EXPECT_THAT(enabled, testing::ElementsAre(a));
  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(c));
  EXPECT_THAT(selector->sortedStyles(), testing::ElementsAre(a, b));
}

TEST_F(StyleMoves, AMoveThatIsPutOffGoesWhereItWasToGoWhateverTheItemsAreByThen) {
  selector->setSortedStyles({a});

  selector->setStyle(a->items()->at(0), true);
  selector->setStyle(a->items()->at(0), false);
  platform.mainQueue.runPending();

  EXPECT_EQ(a->enabledState(), FreltaEnabledStateNone);
  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(a));
  EXPECT_THAT(selector->sortedStyles(), testing::IsEmpty());
}

TEST_F(StyleMoves, AMoveOfARowThatIsNotThereFailsBeforeTheTableIsTouched) {
  selector->setEnabledStyles({a});

  for (const auto& [source, destination] :
       {std::pair(1, 0), std::pair(-1, 0), std::pair(0, 1), std::pair(0, -1)})
    selector->moveRowAtIndexPath({0, source}, {0, destination});
  platform.mainQueue.runPending();

  EXPECT_EQ(platform.mainQueue.exceptions.size(), 4U);
  EXPECT_THAT(table.did, testing::IsEmpty());
  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(a));
}

TEST_F(StyleMoves, AProposedMoveStaysInItsSection) {
  selector->setEnabledStyles({a, b});
  selector->setSortedStyles({c});
  const auto target = [&](IndexPath source, IndexPath proposed) {
    return selector->targetIndexPathForMoveFromRowAtIndexPath(source, proposed);
  };

  EXPECT_EQ(target({1, 0}, {0, 1}), (IndexPath{1, 0}));
  EXPECT_EQ(target({0, 0}, {1, 0}), (IndexPath{0, 1}));
  EXPECT_EQ(target({0, 0}, {0, 5}), (IndexPath{0, 5}));
  EXPECT_EQ(target({1, 4}, {1, 2}), (IndexPath{1, 2}));
}

TEST_F(StyleMoves, AnItemsGroupIsTheFirstThatHoldsItLibraryFirst) {
  const auto shared = a->items()->at(0);
  b->items()->push_back(shared);
  selector->setSortedStyles({std::make_shared<FreltaSortedItem>(), b});
  selector->setEnabledStyles({a});

  EXPECT_EQ(selector->groupForStyle(shared), b);
  EXPECT_EQ(selector->groupForStyle(a->items()->at(1)), a);
  EXPECT_EQ(selector->groupForStyle(std::make_shared<FreltaStyleItem>()), nullptr);
}

TEST_F(StyleMoves, IndexPathsAreThoseOfTheFirstVisibleCell) {
  table.cells = {{nullptr, IndexPath{0, 0}},
                 {std::make_shared<FreltaSortedStyle>(), IndexPath{0, 1}},
                 {a, IndexPath{1, 0}},
                 {a, IndexPath{1, 1}},
                 {b, std::nullopt}};

  EXPECT_EQ(selector->indexPathForSortedStyle(a), (IndexPath{1, 0}));
  EXPECT_EQ(selector->indexPathForSortedStyle(b), std::nullopt);
  EXPECT_EQ(selector->indexPathForSortedStyle(c), std::nullopt);
  EXPECT_EQ(selector->indexPathForSortedStyle(nullptr), std::nullopt);
  EXPECT_EQ(selector->indexPathForStyle(a->items()->at(1)), (IndexPath{1, 0}));
  EXPECT_EQ(selector->indexPathForStyle(c->items()->at(0)), std::nullopt);
}

}  // namespace
}  // namespace frelta
