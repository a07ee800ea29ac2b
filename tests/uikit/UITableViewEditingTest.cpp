#include "fake/FakePlatform.h"
#include "tests/uikit/KitTest.h"
#include "tests/uikit/TableRows.h"

namespace frelta {
namespace {

/// The first row can be moved; rows below the second make no room for controls.
class EditedRows : public TableRows {
 public:
  using TableRows::TableRows;
  bool canMoveRowAtIndexPath(UITableView&, IndexPath path) override { return path.row == 0; }
  bool shouldIndentWhileEditingRowAtIndexPath(UITableView&, IndexPath path) override {
    return path.row < 2;
  }
  void scrollViewDidScroll(UIScrollView& view) override {
    offsets.push_back(view.contentOffset().y);
    if (pin) view.setContentOffset({0, *pin});
  }
  std::vector<double> offsets;
  std::optional<double> pin;
};

/// A plain table of 300 x 440 points with a hundred rows of 44.
class UITableViewEditedTest : public KitTest {
 protected:
  UITableViewEditedTest() {
    table.setDataSource(&rows);
    table.setDelegate(&rows);
    table.layoutIfNeeded();
  }
  const UIView* reorderControl(int row) const {
    for (const auto& view : table.cellForRowAtIndexPath({0, row})->subviews()) {
      if (dynamic_cast<UITableViewCellReorderControl*>(view.get())) return view.get();
    }
    return nullptr;
  }
  UITableViewCell& cell(int row) const { return *table.cellForRowAtIndexPath({0, row}); }

  FakePlatform platform;
  EditedRows rows{100};
  UITableView table{CGRect(0, 0, 300, 440), UITableViewStyle::Plain};
};

TEST_F(UITableViewEditedTest, AMovableRowHasAReorderControlWhileTheTableIsEdited) {
  const UIView* before = reorderControl(0);
  table.setEditing(true);
  table.layoutIfNeeded();
  const UIView* first = reorderControl(0);
  const CGRect frame = first ? first->frame() : CGRect();
  const UIView* second = reorderControl(1);
  table.setEditing(false);

  EXPECT_EQ(before, nullptr);
  EXPECT_EQ(frame, CGRect(262, 0, 22, 44));
  EXPECT_EQ(second, nullptr);
  EXPECT_EQ(reorderControl(0), nullptr);
  EXPECT_FALSE(cell(0).isEditing());
}

TEST_F(UITableViewEditedTest, ContentsMakeRoomWhereTheDelegateSaysSo) {
  table.setEditing(true);
  table.layoutIfNeeded();

  EXPECT_EQ(cell(1).contentView()->frame(), CGRect(38, 0, 262, 44));
  EXPECT_EQ(cell(2).contentView()->frame(), CGRect(0, 0, 300, 44));
}

TEST_F(UITableViewEditedTest, EditingComesAnimatedWhenAskedTo) {
  table.setEditing(true, true);
  platform.mainQueue.advance(0.15);

  EXPECT_DOUBLE_EQ(cell(1).contentView()->presentation().frame.minX(), 19);
}

TEST_F(UITableViewEditedTest, RowsCanBeTappedWhileEditingOnlyWhenTheTableAllowsIt) {
  table.setEditing(true);

  table.userDidSelectRowAtIndexPath({0, 3});
  const auto refused = rows.selections;
  table.setAllowsSelectionDuringEditing(true);
  table.userDidSelectRowAtIndexPath({0, 3});

  EXPECT_THAT(refused, testing::IsEmpty());
  EXPECT_THAT(rows.selections, testing::ElementsAre(IndexPath{0, 3}));
}

TEST_F(UITableViewEditedTest, SeparatorsHaveTheTablesColourAlsoOnRowsThatCome) {
  table.setSeparatorColor(UIColor::clearColor());
  const UIColor shown = cell(0).separatorColor();
  table.userDidScroll({0, 2000});
  table.layoutIfNeeded();

  EXPECT_EQ(shown, UIColor::clearColor());
  EXPECT_EQ(cell(50).separatorColor(), UIColor::clearColor());
}

TEST_F(UITableViewEditedTest, ARowIsScrolledToEachPosition) {
  using Position = UITableViewScrollPosition;
  std::vector<double> offsets;

  for (const Position position :
       {Position::Top, Position::Middle, Position::Bottom, Position::None}) {
    table.scrollToRowAtIndexPath({0, 50}, position);
    offsets.push_back(table.contentOffset().y);
  }
  table.scrollToRowAtIndexPath({0, 99}, Position::Top);
  offsets.push_back(table.contentOffset().y);
  table.scrollToRowAtIndexPath({0, 500}, Position::Top);

  EXPECT_THAT(offsets, testing::ElementsAre(2200, 2002, 1804, 1804, 3960));
  EXPECT_EQ(table.contentOffset().y, 3960);
}

TEST_F(UITableViewEditedTest, SelectingScrollsOnlyWhenGivenAPosition) {
  table.selectRowAtIndexPath(IndexPath{0, 50}, true, UITableViewScrollPosition::None);
  const double stayed = table.contentOffset().y;
  table.selectRowAtIndexPath(IndexPath{0, 50}, false, UITableViewScrollPosition::Top);

  EXPECT_EQ(stayed, 0);
  EXPECT_EQ(table.contentOffset().y, 2200);
}

TEST_F(UITableViewEditedTest, AnimatedScrollingTakesThreeTenthsOfASecond) {
  table.scrollToRowAtIndexPath({0, 50}, UITableViewScrollPosition::Top, true);

  const double start = table.contentOffset().y;
  platform.mainQueue.advance(0.15);
  const double middle = table.contentOffset().y;
  platform.mainQueue.advance(0.2);

  EXPECT_EQ(start, 0);
  EXPECT_NEAR(middle, 1100, 1e-6);
  EXPECT_EQ(table.contentOffset().y, 2200);
  EXPECT_FALSE(table.isScrollAnimating());
  EXPECT_EQ(platform.mainQueue.pending(), 0u);
}

TEST_F(UITableViewEditedTest, AnimatedScrollingStopsWhenTheUserScrolls) {
  table.scrollToRowAtIndexPath({0, 50}, UITableViewScrollPosition::Top, true);
  platform.mainQueue.advance(0.15);
  const double shown = table.contentOffset().y;

  table.userDidScroll({0, shown});
  const bool stillScrolls = table.isScrollAnimating();
  table.userDidScroll({0, 300});
  platform.mainQueue.advance(1);

  EXPECT_TRUE(stillScrolls);
  EXPECT_EQ(table.contentOffset().y, 300);
}

TEST_F(UITableViewEditedTest, ATableThatGoesTakesItsScrollingAlong) {
  auto other = std::make_unique<UIScrollView>(CGRect(0, 0, 100, 100));
  other->setContentSize({100, 1000});
  other->setContentOffset({0, 500}, true);

  other.reset();
  platform.mainQueue.advance(1);

  EXPECT_EQ(platform.mainQueue.pending(), 0u);
}

TEST_F(UITableViewEditedTest, TheDelegateLearnsOfEachScrollAndMayPinTheTable) {
  table.userDidScroll({0, 100});
  rows.pin = 40;
  table.userDidScroll({0, 200});

  EXPECT_THAT(rows.offsets, testing::ElementsAre(100, 200, 40));
  EXPECT_EQ(table.contentOffset().y, 40);
}

}  // namespace
}  // namespace frelta
