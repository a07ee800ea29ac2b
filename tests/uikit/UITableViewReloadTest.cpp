#include "fake/FakePlatform.h"
#include "tests/uikit/KitTest.h"
#include "tests/uikit/TableRows.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A plain table of 300 x 440 points: ten rows of 44 show, five more wait below. Each row shows an
/// item, and fills its cell by fading it within one second to the alpha that the test names.
class UITableViewReloadTest : public KitTest {
 protected:
  UITableViewReloadTest() : rows(20) {
    for (int i = 0; i < 20; ++i) items.push_back(std::make_shared<int>(i));
    rows.item = [this](IndexPath path) { return items.at(static_cast<std::size_t>(path.row)); };
    rows.fill = [this](UITableViewCell& cell, IndexPath) { fade(cell); };
    table.setDataSource(&rows);
    table.setDelegate(&rows);
    table.layoutIfNeeded();
  }
  void fade(UITableViewCell& cell) {
    UIView::animateWithDuration(
        1, [&] { cell.textLabel()->setAlpha(alpha); },
        [this](bool ended) { ends.push_back(ended); });
  }
  UITableViewCell* cell(int row) { return table.cellForRowAtIndexPath({0, row}); }
  double shownAlpha(int row) { return cell(row)->textLabel()->presentation().alpha; }
  void reload() {
    table.reloadData();
    table.layoutIfNeeded();
  }

  FakePlatform platform;
  TableRows rows;
  std::vector<std::shared_ptr<int>> items;
  double alpha = 1;
  std::vector<bool> ends;
  UITableView table{{0, 0, 300, 440}, UITableViewStyle::Plain};
};

TEST_F(UITableViewReloadTest, WhatMovesInARowThatShowsTheSameItemMovesOn) {
  rows.fill = nullptr;
  alpha = 0;
  ends.clear();
  fade(*cell(3));
  platform.mainQueue.advance(0.5);

  reload();

  EXPECT_DOUBLE_EQ(shownAlpha(3), 0.5);
  EXPECT_TRUE(cell(3)->textLabel()->isAnimating());
  platform.mainQueue.advance(0.5);
  EXPECT_EQ(shownAlpha(3), 0);
  EXPECT_THAT(ends, ElementsAre(true));
}

TEST_F(UITableViewReloadTest, AFillingOfTheSameItemMovesFromWhatWasShown) {
  alpha = 0;

  reload();

  EXPECT_EQ(shownAlpha(0), 1);
  platform.mainQueue.advance(0.5);
  EXPECT_DOUBLE_EQ(shownAlpha(0), 0.5);
  EXPECT_DOUBLE_EQ(shownAlpha(14), 0.5);
}

TEST_F(UITableViewReloadTest, ARowThatShowsAnotherItemComesAsItIs) {
  alpha = 0;
  fade(*cell(1));
  platform.mainQueue.advance(0.5);
  ends.clear();
  items[1] = std::make_shared<int>(100);
  alpha = 0.25;

  reload();

  EXPECT_EQ(shownAlpha(1), 0.25);
  EXPECT_FALSE(cell(1)->textLabel()->isAnimating());
  EXPECT_EQ(shownAlpha(2), 1);
  EXPECT_TRUE(cell(2)->textLabel()->isAnimating());
  ends.clear();
  platform.mainQueue.runPending();
  EXPECT_THAT(ends, ElementsAre(false));
}

TEST_F(UITableViewReloadTest, ARowOfNoItemComesAsItIs) {
  rows.item = nullptr;
  reload();
  alpha = 0;

  reload();

  EXPECT_EQ(shownAlpha(0), 0);
  EXPECT_FALSE(cell(0)->textLabel()->isAnimating());
}

TEST_F(UITableViewReloadTest, ARowThatComesByScrollingComesAsItIs) {
  alpha = 0;

  table.userDidScroll({0, 440});
  table.layoutIfNeeded();

  EXPECT_EQ(shownAlpha(19), 0);
  EXPECT_FALSE(cell(19)->textLabel()->isAnimating());
}

TEST_F(UITableViewReloadTest, NothingMovesInACellThatFindsNoRow) {
  rows.fill = nullptr;
  alpha = 0;
  ends.clear();
  UITableViewCell* last = cell(14);
  fade(*last);
  platform.mainQueue.advance(0.5);
  rows.sections[0].rows = 3;

  reload();

  EXPECT_FALSE(last->textLabel()->isAnimating());
  platform.mainQueue.runPending();
  EXPECT_THAT(ends, ElementsAre(false));
}

TEST_F(UITableViewReloadTest, NothingMovesInACellWhoseRowIsOutOfSight) {
  rows.fill = nullptr;
  alpha = 0;
  ends.clear();
  table.userDidScroll({0, 440});
  table.layoutIfNeeded();
  UITableViewCell* last = cell(19);
  fade(*last);
  platform.mainQueue.advance(0.5);

  table.reloadData();
  table.setContentOffset({0, 0});
  table.layoutIfNeeded();

  EXPECT_EQ(cell(19), nullptr);
  EXPECT_FALSE(last->textLabel()->isAnimating());
  platform.mainQueue.runPending();
  EXPECT_THAT(ends, ElementsAre(false));
}

TEST_F(UITableViewReloadTest, ARowKeepsItsCellWhenTheTableScrollsMeanwhile) {
  UITableViewCell* before = cell(10);

  table.reloadData();
  table.setContentOffset({0, 440});
  table.layoutIfNeeded();

  EXPECT_EQ(cell(10), before);
}

TEST_F(UITableViewReloadTest, ACellOfAnotherIdentifierIsNotTheRows) {
  UITableViewCell* before = cell(0);
  rows.identifier = [](IndexPath path) { return path.row == 0 ? "other" : "row"; };

  reload();

  EXPECT_NE(cell(0), before);
  EXPECT_EQ(cell(0)->reuseIdentifier(), "other");
}

TEST_F(UITableViewReloadTest, NothingMovesInACellThatAnotherRowTakes) {
  alpha = 0;
  UITableViewCell* before = cell(0);
  fade(*before);
  platform.mainQueue.advance(0.5);
  // Another identifier takes the row; the new second row finds only the cell of the first.
  rows.sections[0].rows = 1;
  reload();
  ASSERT_EQ(cell(0), before);
  rows.sections[0].rows = 20;
  rows.identifier = [](IndexPath path) { return path.row == 0 ? "other" : "row"; };
  int made = 0;
  rows.makeCell = [&made](std::string name) {
    ++made;
    return std::make_unique<UITableViewCell>(UITableViewCellStyle::Default, std::move(name));
  };

  reload();

  EXPECT_EQ(made, 1);
  for (int row = 1; row < 15; ++row) EXPECT_FALSE(cell(row)->textLabel()->isAnimating()) << row;
}

TEST_F(UITableViewReloadTest, TwoReloadsInOneTurnAreOne) {
  rows.fill = nullptr;
  alpha = 0;
  fade(*cell(3));
  platform.mainQueue.advance(0.5);
  UITableViewCell* before = cell(3);

  table.reloadData();
  EXPECT_EQ(table.numberOfRowsInSection(0), 20);
  reload();

  EXPECT_EQ(cell(3), before);
  EXPECT_DOUBLE_EQ(shownAlpha(3), 0.5);
}

TEST_F(UITableViewReloadTest, ARowThatSlidesSlidesOn) {
  rows.fill = nullptr;
  std::swap(items[0], items[2]);
  table.moveRowAtIndexPath({0, 2}, {0, 0});
  platform.mainQueue.advance(0.15);
  ASSERT_DOUBLE_EQ(cell(0)->presentation().frame.minY(), 44);

  reload();

  EXPECT_DOUBLE_EQ(cell(0)->presentation().frame.minY(), 44);
  platform.mainQueue.advance(0.15);
  EXPECT_EQ(cell(0)->presentation().frame.minY(), 0);
}

}  // namespace
}  // namespace frelta
