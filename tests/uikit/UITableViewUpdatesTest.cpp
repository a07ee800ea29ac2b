#include <algorithm>
#include <stdexcept>

#include "fake/FakePlatform.h"
#include "tests/uikit/KitTest.h"
#include "tests/uikit/TableRows.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Rows with names that move about, and titles on their cells.
class NamedRows : public TableRows {
 public:
  explicit NamedRows(std::vector<std::vector<std::string>> shown)
      : TableRows(0), names(std::move(shown)) {
    fill = [this](UITableViewCell& cell, IndexPath path) {
      cell.textLabel()->setText(
          names.at(static_cast<std::size_t>(path.section)).at(static_cast<std::size_t>(path.row)));
      if (filling) filling(path);
    };
  }
  int numberOfSectionsInTableView(UITableView&) override { return static_cast<int>(names.size()); }
  int numberOfRowsInSection(UITableView&, int section) override {
    return static_cast<int>(names.at(static_cast<std::size_t>(section)).size());
  }
  std::string titleForHeaderInSection(UITableView&, int) override { return {}; }
  std::string titleForFooterInSection(UITableView&, int) override { return {}; }
  void didDeselectRowAtIndexPath(UITableView&, IndexPath path) override {
    deselections.push_back(path);
  }

  std::vector<std::vector<std::string>> names;
  std::function<void(IndexPath)> filling;
  std::vector<IndexPath> deselections;
};

/// A plain table of 300 x 440 points with two sections: a b c and d e f.
class UITableViewUpdatesTest : public KitTest {
 protected:
  UITableViewUpdatesTest() {
    table.setDataSource(&rows);
    table.setDelegate(&rows);
    table.layoutIfNeeded();
  }
  std::string nameAt(IndexPath path) const {
    const UITableViewCell* cell = table.cellForRowAtIndexPath(path);
    return cell ? cell->textLabel()->text() : std::string();
  }
  std::vector<std::string> shownNames() const {
    std::vector<std::string> names;
    for (const UITableViewCell* cell : table.visibleCells()) {
      names.push_back(cell->textLabel()->text());
    }
    return names;
  }
  double shownTop(IndexPath path) const {
    return table.cellForRowAtIndexPath(path)->presentation().frame.minY();
  }
  /// Moves the last row of the second section to the head of the first.
  void moveLastToHead() {
    table.beginUpdates();
    rows.names = {{"f", "a", "b", "c"}, {"d", "e"}};
    table.moveRowAtIndexPath({1, 2}, {0, 0});
    table.endUpdates();
  }

  FakePlatform platform;
  NamedRows rows{{{"a", "b", "c"}, {"d", "e", "f"}}};
  UITableView table{CGRect(0, 0, 300, 440), UITableViewStyle::Plain};
};

TEST_F(UITableViewUpdatesTest, AMovedRowKeepsItsCellAndSoDoTheOthers) {
  const std::vector<UITableViewCell*> before = table.visibleCells();

  moveLastToHead();

  EXPECT_THAT(table.visibleCells(),
              ElementsAre(before[5], before[0], before[1], before[2], before[3], before[4]));
  EXPECT_THAT(shownNames(), ElementsAre("f", "a", "b", "c", "d", "e"));
  EXPECT_EQ(rows.cellsMade, 6);
  EXPECT_EQ(table.numberOfRowsInSection(0), 4);
}

TEST_F(UITableViewUpdatesTest, CellsMoveToTheirPlacesInThreeTenthsOfASecond) {
  moveLastToHead();

  const double start = shownTop({0, 0});
  platform.mainQueue.advance(0.15);
  const double middle = shownTop({0, 0});
  const double other = shownTop({0, 1});
  platform.mainQueue.advance(0.15);

  EXPECT_EQ(table.cellForRowAtIndexPath({0, 0})->frame().minY(), 0);
  EXPECT_EQ(start, 220);
  EXPECT_DOUBLE_EQ(middle, 110);
  EXPECT_DOUBLE_EQ(other, 22);
  EXPECT_EQ(shownTop({0, 0}), 0);
}

TEST_F(UITableViewUpdatesTest, ARowThatWasOutOfSightAppearsInItsPlace) {
  for (int i = 0; i < 100; ++i) rows.names[1].push_back("more " + std::to_string(i));
  table.reloadData();
  table.layoutIfNeeded();

  table.beginUpdates();
  std::rotate(rows.names[1].begin(), rows.names[1].begin() + 90, rows.names[1].begin() + 91);
  table.moveRowAtIndexPath({1, 90}, {1, 0});
  table.endUpdates();

  EXPECT_EQ(nameAt({1, 0}), "more 87");
  EXPECT_EQ(shownTop({1, 0}), 132);
  EXPECT_EQ(nameAt({1, 1}), "d");
}

TEST_F(UITableViewUpdatesTest, ATapDuringAMoveReachesTheRowThatIsThereNow) {
  moveLastToHead();
  platform.mainQueue.advance(0.1);

  table.userDidSelectRowAtIndexPath({0, 0});
  platform.mainQueue.advance(1);

  EXPECT_THAT(rows.selections, ElementsAre(IndexPath{0, 0}));
  EXPECT_TRUE(table.cellForRowAtIndexPath({0, 0})->isSelected());
  EXPECT_THAT(shownNames(), ElementsAre("f", "a", "b", "c", "d", "e"));
}

TEST_F(UITableViewUpdatesTest, ASelectionFollowsItsRow) {
  table.selectRowAtIndexPath(IndexPath{1, 2});

  moveLastToHead();

  EXPECT_EQ(table.indexPathForSelectedRow(), (IndexPath{0, 0}));
  EXPECT_TRUE(table.cellForRowAtIndexPath({0, 0})->isSelected());
}

TEST_F(UITableViewUpdatesTest, SeveralMovesOfOneUpdateCountFromThePlacesBefore) {
  table.beginUpdates();
  rows.names = {{"c", "b", "a", "d"}, {"e", "f"}};
  table.moveRowAtIndexPath({0, 0}, {0, 2});
  table.moveRowAtIndexPath({0, 2}, {0, 0});
  table.moveRowAtIndexPath({1, 0}, {0, 3});
  table.endUpdates();

  EXPECT_THAT(shownNames(), ElementsAre("c", "b", "a", "d", "e", "f"));
  EXPECT_EQ(rows.cellsMade, 6);
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(UITableViewUpdatesTest, UpdatesThatDoNotFitReloadTheTableAndSaySo) {
  table.beginUpdates();
  rows.names = {{"x"}, {"y"}};
  table.moveRowAtIndexPath({1, 2}, {0, 0});
  table.endUpdates();
  table.layoutIfNeeded();

  EXPECT_THAT(shownNames(), ElementsAre("x", "y"));
  EXPECT_EQ(platform.log.lines.size(), 1u);
}

TEST_F(UITableViewUpdatesTest, MovesOfNoRowOrOfOneRowTwiceReloadTheTable) {
  const std::vector<std::vector<std::pair<IndexPath, IndexPath>>> updates{
      {{{0, 7}, {0, 0}}},
      {{{-1, 0}, {0, 0}}},
      {{{0, 0}, {5, 0}}},
      {{{0, 0}, {0, 1}}, {{0, 0}, {0, 2}}},
      {{{0, 0}, {0, 2}}, {{0, 1}, {0, 2}}},
  };

  for (const auto& moves : updates) {
    table.beginUpdates();
    for (const auto& [from, to] : moves) table.moveRowAtIndexPath(from, to);
    table.endUpdates();
    table.layoutIfNeeded();
  }

  EXPECT_EQ(platform.log.lines.size(), updates.size());
  EXPECT_THAT(shownNames(), ElementsAre("a", "b", "c", "d", "e", "f"));
}

TEST_F(UITableViewUpdatesTest, AReloadedSectionIsAskedForAnewAndTheOtherKeepsItsCells) {
  const UITableViewCell* kept = table.cellForRowAtIndexPath({0, 1});
  rows.names[1] = {"D", "E"};

  table.reloadSections({1});

  EXPECT_THAT(shownNames(), ElementsAre("a", "b", "c", "D", "E"));
  EXPECT_EQ(table.cellForRowAtIndexPath({0, 1}), kept);
  EXPECT_EQ(shownTop({1, 1}), 176);
}

TEST_F(UITableViewUpdatesTest, OnlyTheOutermostPairCounts) {
  table.beginUpdates();
  moveLastToHead();
  const auto within = shownNames();
  table.endUpdates();

  EXPECT_THAT(within, ElementsAre("a", "b", "c", "d", "e", "f"));
  EXPECT_THAT(shownNames(), ElementsAre("f", "a", "b", "c", "d", "e"));
}

TEST_F(UITableViewUpdatesTest, AnEmptyUpdateAsksForTheHeightsAndMovesTheRowsBelow) {
  rows.height = [](UITableView&, IndexPath path) { return path == IndexPath{0, 0} ? 144.0 : 44.0; };

  table.beginUpdates();
  table.endUpdates();
  platform.mainQueue.advance(0.15);

  EXPECT_EQ(table.cellForRowAtIndexPath({0, 0})->frame().size.height, 144);
  EXPECT_DOUBLE_EQ(shownTop({0, 1}), 94);
  EXPECT_EQ(rows.cellsMade, 6);
}

TEST_F(UITableViewUpdatesTest, UpdatesWhileACellIsMadeWaitAndHarmNothing) {
  rows.filling = [this](IndexPath path) {
    table.beginUpdates();
    if (path == IndexPath{0, 0}) table.moveRowAtIndexPath({0, 1}, {0, 2});
    table.selectRowAtIndexPath(path, true, UITableViewScrollPosition::None);
    table.endUpdates();
  };

  table.reloadData();
  table.layoutIfNeeded();
  rows.filling = nullptr;
  platform.mainQueue.runPending();
  table.layoutIfNeeded();

  EXPECT_THAT(shownNames(), ElementsAre("a", "b", "c", "d", "e", "f"));
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(UITableViewUpdatesTest, ACellThatCannotBeMadeLeavesUpdatesPossible) {
  rows.filling = [](IndexPath) { throw std::out_of_range("no such style"); };
  table.reloadData();
  EXPECT_THROW(table.layoutIfNeeded(), std::out_of_range);
  rows.filling = nullptr;
  table.setNeedsLayout();
  table.layoutIfNeeded();

  moveLastToHead();

  EXPECT_THAT(shownNames(), ElementsAre("f", "a", "b", "c", "d", "e"));
}

TEST_F(UITableViewUpdatesTest, WhatACellShowsFirstIsNotAnimated) {
  rows.makeCell = [](std::string name) {
    auto cell = std::make_unique<UITableViewCell>(UITableViewCellStyle::Default, std::move(name));
    UIView::animateWithDuration(0.25, [&] { cell->setAlpha(0.5); });
    return cell;
  };
  rows.names.push_back({"g"});

  table.reloadData();
  table.layoutIfNeeded();

  EXPECT_EQ(table.cellForRowAtIndexPath({2, 0})->presentation().alpha, 0.5);
}

TEST_F(UITableViewUpdatesTest, ATapOnAnotherRowTakesTheSelectionFromTheFirst) {
  table.userDidSelectRowAtIndexPath({0, 1});
  table.userDidSelectRowAtIndexPath({0, 1});
  table.userDidSelectRowAtIndexPath({1, 0});

  EXPECT_THAT(rows.deselections, ElementsAre(IndexPath{0, 1}));
  EXPECT_EQ(rows.selections.size(), 3u);
}

}  // namespace
}  // namespace frelta
