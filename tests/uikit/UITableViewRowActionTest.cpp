#include "uikit/UITableViewRowAction.h"

#include "tests/uikit/KitTest.h"
#include "tests/uikit/TableRows.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class EditableRows : public TableRows {
 public:
  using TableRows::TableRows;
  bool canEditRowAtIndexPath(UITableView&, IndexPath path) override { return path.row != 1; }
  UITableViewRowActions editActionsForRowAtIndexPath(UITableView&, IndexPath path) override {
    ++questions;
    return {UITableViewRowAction::rowActionWithStyle(
        UITableViewRowActionStyle::Normal, "Delete",
        [this, path](UITableViewRowAction&, IndexPath where) {
          EXPECT_EQ(path, where);
          pressedRows.push_back(where.row);
        })};
  }
  int questions = 0;
  std::vector<int> pressedRows;
};

class UITableViewRowActionTest : public KitTest {
 protected:
  UITableViewRowActionTest() {
    table.setDataSource(&rows);
    table.setDelegate(&rows);
    table.layoutIfNeeded();
  }
  const UITableViewRowActions& shownActions(int row) {
    return table.cellForRowAtIndexPath({0, row})->rowActions();
  }

  EditableRows rows{50};
  UITableView table{{0, 0, 300, 400}, UITableViewStyle::Plain};
};

TEST_F(UITableViewRowActionTest, AreAskedForOnlyWhenARowIsSwiped) {
  EXPECT_EQ(rows.questions, 0);

  table.userDidSwipeRowAtIndexPath({0, 0});

  EXPECT_EQ(rows.questions, 1);
  EXPECT_THAT(shownActions(0), SizeIs(1));
  EXPECT_EQ(table.indexPathForSwipedRow(), (IndexPath{0, 0}));
}

TEST_F(UITableViewRowActionTest, ARowThatCannotBeEditedHasNone) {
  table.userDidSwipeRowAtIndexPath({0, 1});

  EXPECT_EQ(rows.questions, 0);
  EXPECT_EQ(table.indexPathForSwipedRow(), std::nullopt);
  EXPECT_FALSE(table.cellForRowAtIndexPath({0, 1})->isEditable());
  EXPECT_TRUE(table.cellForRowAtIndexPath({0, 0})->isEditable());
}

TEST_F(UITableViewRowActionTest, SwipingAnotherRowClosesTheFirst) {
  table.userDidSwipeRowAtIndexPath({0, 0});

  table.userDidSwipeRowAtIndexPath({0, 2});

  EXPECT_THAT(shownActions(0), IsEmpty());
  EXPECT_EQ(table.indexPathForSwipedRow(), (IndexPath{0, 2}));
}

TEST_F(UITableViewRowActionTest, ATapScrollingAndAReloadCloseTheRow) {
  table.userDidSwipeRowAtIndexPath({0, 0});
  table.userDidSelectRowAtIndexPath({0, 3});
  EXPECT_EQ(table.indexPathForSwipedRow(), std::nullopt);
  EXPECT_THAT(rows.selections, IsEmpty()) << "the tap only closes";

  table.userDidSwipeRowAtIndexPath({0, 0});
  table.setContentOffset({0, 20});
  EXPECT_EQ(table.indexPathForSwipedRow(), std::nullopt);

  table.userDidSwipeRowAtIndexPath({0, 0});
  table.reloadData();
  table.layoutIfNeeded();
  EXPECT_EQ(table.indexPathForSwipedRow(), std::nullopt);
  EXPECT_THAT(shownActions(0), IsEmpty());
}

TEST_F(UITableViewRowActionTest, PressingOneClosesTheRowAndTellsWhere) {
  table.userDidSwipeRowAtIndexPath({0, 2});

  table.userDidPressRowAction(shownActions(2)[0], {0, 2});

  EXPECT_THAT(rows.pressedRows, ElementsAre(2));
  EXPECT_EQ(table.indexPathForSwipedRow(), std::nullopt);
}

TEST_F(UITableViewRowActionTest, ANormalOneIsGreyAndADestructiveOneRedUntilToldOtherwise) {
  using Action = UITableViewRowAction;
  const auto normal = Action::rowActionWithStyle(UITableViewRowActionStyle::Normal, "A", nullptr);
  const auto destructive =
      Action::rowActionWithStyle(UITableViewRowActionStyle::Destructive, "B", nullptr);

  EXPECT_EQ(normal->backgroundColor(), UIColor::systemGray3Color());
  EXPECT_EQ(destructive->backgroundColor(), UIColor::systemRedColor());
  normal->setBackgroundColor(UIColor::systemBlueColor());
  EXPECT_EQ(normal->backgroundColor(), UIColor::systemBlueColor());
}

TEST_F(UITableViewRowActionTest, RowsOfAPlainTableAreWhiteInLightAndAStepAboveItInTheDark) {
  const auto ground = table.cellForRowAtIndexPath({0, 0})->backgroundColor();

  EXPECT_EQ(ground->componentsForStyle(UserInterfaceStyle::Light),
            (UIColor::Components{1, 1, 1, 1}));
  EXPECT_EQ(ground->componentsForStyle(UserInterfaceStyle::Dark),
            (UIColor::Components{1, 1, 1, 15 / 255.0}));
  EXPECT_EQ(table.backgroundColor(), UIColor::systemBackgroundColor());
}

}  // namespace
}  // namespace frelta
