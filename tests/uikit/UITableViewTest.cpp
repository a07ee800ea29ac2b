#include "uikit/UITableView.h"

#include <algorithm>
#include <stdexcept>

#include "tests/uikit/KitTest.h"
#include "tests/uikit/TableRows.h"
#include "uikit/UITextField.h"

namespace frelta {
namespace {

/// A plain table of 300 x 440 points: ten rows of 44 show, five more wait below.
class UITableViewTest : public KitTest {
 protected:
  void show(TableRows& rows, UITableViewStyle style = UITableViewStyle::Plain) {
    table = std::make_unique<UITableView>(CGRect(0, 0, 300, 440), style);
    table->setDataSource(&rows);
    table->setDelegate(&rows);
    table->layoutIfNeeded();
  }
  void scrollTo(double y) {
    table->userDidScroll({0, y});
    table->layoutIfNeeded();
  }
  void reload() {
    table->reloadData();
    table->layoutIfNeeded();
  }
  std::vector<UITableViewCell*> cells() const {
    std::vector<UITableViewCell*> found;
    for (const auto& view : table->subviews()) {
      if (auto* cell = dynamic_cast<UITableViewCell*>(view.get())) found.push_back(cell);
    }
    return found;
  }
  std::vector<double> tops() const {
    std::vector<double> tops;
    for (const auto& view : table->subviews()) tops.push_back(view->frame().minY());
    return tops;
  }

  std::unique_ptr<UITableView> table;
};

TEST_F(UITableViewTest, OnlyRowsOnAndNearTheScreenHaveCells) {
  TableRows rows(10000);

  show(rows);

  EXPECT_EQ(cells().size(), 15u);
  EXPECT_EQ(rows.cellsMade, 15);
  EXPECT_EQ(rows.heightQuestions, 10000);
  EXPECT_EQ(table->contentSize(), (CGSize{300, 440000}));
  EXPECT_EQ(table->indexPathsForVisibleRows().size(), 15u);
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 15}), nullptr);
}

TEST_F(UITableViewTest, ScrollingAnywhereMakesNoMoreCellsThanShowAtOnce) {
  TableRows rows(10000);
  show(rows);

  for (double y = 0; y < 440000; y += 1234) {
    scrollTo(y);
    for (double visible = y; visible < y + 440; visible += 22) {
      const UITableViewCell* cell =
          table->cellForRowAtIndexPath({0, static_cast<int>(visible / 44)});
      ASSERT_TRUE(cell || visible >= 440000) << visible;
    }
  }

  EXPECT_LE(rows.cellsMade, 21);
  EXPECT_EQ(rows.heightQuestions, 10000);
}

TEST_F(UITableViewTest, EachCellShowsTheRowWhosePlaceItHas) {
  TableRows rows(1000);
  show(rows);

  scrollTo(5000);

  const UITableViewCell* cell = table->cellForRowAtIndexPath({0, 120});
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->textLabel()->text(), "0/120");
  EXPECT_EQ(cell->frame(), table->rectForRowAtIndexPath({0, 120}));
  EXPECT_EQ(table->indexPathForCell(*cell), (IndexPath{0, 120}));
}

TEST_F(UITableViewTest, ACellIsReusedOnlyForItsIdentifier) {
  TableRows rows(100);
  rows.identifier = [](IndexPath path) { return path.row < 50 ? "upper" : "lower"; };
  show(rows);

  scrollTo(60 * 44);

  EXPECT_EQ(rows.cellsMade, 15 + 20);
  for (const UITableViewCell* cell : cells()) EXPECT_EQ(cell->reuseIdentifier(), "lower");
  EXPECT_NE(table->dequeueReusableCellWithIdentifier("upper"), nullptr);
  EXPECT_EQ(table->dequeueReusableCellWithIdentifier("unknown"), nullptr);
}

TEST_F(UITableViewTest, ACellIsMadeReadyBeforeItIsReused) {
  class Cell : public UITableViewCell {
   public:
    using UITableViewCell::UITableViewCell;
    void prepareForReuse() override { ++preparations; }
    int preparations = 0;
  };
  TableRows rows(3);
  std::vector<Cell*> made;
  rows.makeCell = [&made](std::string name) {
    auto cell = std::make_unique<Cell>(UITableViewCellStyle::Default, std::move(name));
    made.push_back(cell.get());
    return cell;
  };
  show(rows);

  reload();

  ASSERT_EQ(made.size(), 3u);
  for (const Cell* cell : made) EXPECT_EQ(cell->preparations, 1);
}

TEST_F(UITableViewTest, AReloadGivesEachRowItsOwnCellAgain) {
  TableRows rows(100);
  rows.identifier = [](IndexPath path) { return path.row % 3 ? "a" : "b"; };
  show(rows);
  scrollTo(2000);
  const std::vector<UITableViewCell*> before = cells();

  reload();

  EXPECT_EQ(cells(), before);
}

TEST_F(UITableViewTest, SubviewsStandInVisualOrderAfterAnyScrolling) {
  TableRows rows({{"one", 30, "end"}, {"", 5, ""}, {"three", 60, "end"}, {"four", 0, "empty"}});
  rows.height = [](UITableView&, IndexPath path) { return path.row % 7 ? 44.0 : 71.0; };
  show(rows, UITableViewStyle::InsetGrouped);

  for (const double y : {900.0, 100.0, 4000.0, 3700.0, 0.0, 1500.0, 9000.0}) {
    scrollTo(y);

    EXPECT_TRUE(std::ranges::is_sorted(tops())) << y;
  }
}

TEST_F(UITableViewTest, AReloadKeepsTheOffsetWithinTheNewContent) {
  TableRows rows(100);
  show(rows);
  scrollTo(2000);

  reload();
  const double kept = table->contentOffset().y;
  rows.sections[0].rows = 20;
  reload();
  const double clamped = table->contentOffset().y;
  rows.sections[0].rows = 3;
  reload();

  EXPECT_EQ(kept, 2000);
  EXPECT_EQ(clamped, 20 * 44 - 440);
  EXPECT_EQ(table->contentOffset().y, 0);
  EXPECT_EQ(cells().size(), 3u);
}

TEST_F(UITableViewTest, ADataSourceMayGrowAndShrinkBetweenReloads) {
  TableRows rows(2);
  show(rows);

  rows.sections = {{"new", 3, ""}, {"", 1, ""}};
  reload();
  const std::vector<IndexPath> grown = table->indexPathsForVisibleRows();
  rows.sections = {{"", 1, ""}};
  reload();

  EXPECT_THAT(grown, testing::ElementsAre(IndexPath{0, 0}, IndexPath{0, 1}, IndexPath{0, 2},
                                          IndexPath{1, 0}));
  EXPECT_THAT(table->indexPathsForVisibleRows(), testing::ElementsAre(IndexPath{0, 0}));
  EXPECT_EQ(table->subviews().size(), 1u) << "the title is gone too";
}

TEST_F(UITableViewTest, NoRowsAndNoSectionsAreFine) {
  TableRows none(std::vector<TableRows::Section>{});
  TableRows empty(0);

  show(none, UITableViewStyle::InsetGrouped);
  const int sections = table->numberOfSections();
  const int rowsOfNone = table->numberOfRowsInSection(0);
  show(empty, UITableViewStyle::InsetGrouped);

  EXPECT_EQ(sections, 0);
  EXPECT_EQ(rowsOfNone, 0);
  EXPECT_EQ(table->numberOfSections(), 1);
  EXPECT_EQ(table->numberOfRowsInSection(0), 0);
  EXPECT_TRUE(table->subviews().empty());
  EXPECT_EQ(table->rectForRowAtIndexPath({0, 0}), CGRect());
}

TEST_F(UITableViewTest, ATableWithoutItsDataSourceIsEmpty) {
  TableRows rows(3);
  show(rows);

  table->setDataSource(nullptr);
  table->layoutIfNeeded();

  EXPECT_EQ(table->numberOfSections(), 0);
  EXPECT_TRUE(cells().empty());
}

TEST_F(UITableViewTest, CountsAndPlacesAreKnownBeforeTheFirstLayout) {
  TableRows rows(7);
  table = std::make_unique<UITableView>(CGRect(0, 0, 300, 440), UITableViewStyle::Plain);
  table->setDataSource(&rows);

  const int count = table->numberOfRowsInSection(0);

  EXPECT_EQ(count, 7);
  EXPECT_EQ(table->rectForRowAtIndexPath({0, 2}), CGRect(0, 88, 300, 44));
  EXPECT_EQ(rows.cellsMade, 0);
}

TEST_F(UITableViewTest, CardsKnowWhichCornersAreTheirs) {
  using Position = UITableViewCellGroupPosition;
  TableRows rows({{"", 3, ""}, {"", 1, ""}});

  show(rows, UITableViewStyle::InsetGrouped);

  EXPECT_EQ(table->cellForRowAtIndexPath({0, 0})->groupPosition(), Position::First);
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 1})->groupPosition(), Position::Middle);
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 2})->groupPosition(), Position::Last);
  EXPECT_EQ(table->cellForRowAtIndexPath({1, 0})->groupPosition(), Position::Single);
}

TEST_F(UITableViewTest, TitlesAreLabelsAndHeadersAreHeadings) {
  TableRows rows({{"Header", 1, "Footer"}});

  show(rows, UITableViewStyle::Grouped);

  ASSERT_EQ(table->subviews().size(), 3u);
  const auto* header = dynamic_cast<UILabel*>(table->subviews()[0].get());
  const auto* footer = dynamic_cast<UILabel*>(table->subviews()[2].get());
  ASSERT_TRUE(header && footer);
  EXPECT_EQ(header->text(), "Header");
  EXPECT_EQ(header->accessibility().role, UIAccessibility::Role::Heading);
  EXPECT_EQ(footer->text(), "Footer");
  EXPECT_EQ(footer->accessibility().role, UIAccessibility::Role::StaticText);
}

TEST_F(UITableViewTest, TitlesChangeAndGoWithAReload) {
  TableRows rows({{"Header", 1, "Footer"}});
  show(rows, UITableViewStyle::Grouped);

  rows.sections = {{"Other", 1, ""}};
  reload();

  ASSERT_EQ(table->subviews().size(), 2u);
  EXPECT_EQ(dynamic_cast<UILabel&>(*table->subviews()[0]).text(), "Other");
}

TEST_F(UITableViewTest, AnotherWidthMeasuresTheRowsAnewAndKeepsTheirCells) {
  TableRows rows(3);
  rows.height = [](UITableView& view, IndexPath) { return view.frame().size.width / 10; };
  show(rows);
  const std::vector<UITableViewCell*> before = cells();

  table->setFrame({0, 0, 600, 440});
  table->layoutIfNeeded();
  const int questions = rows.heightQuestions;
  table->setFrame({0, 0, 600, 500});
  table->layoutIfNeeded();

  EXPECT_EQ(cells(), before);
  EXPECT_EQ(before[1]->frame(), CGRect(0, 60, 600, 60));
  EXPECT_EQ(questions, 6);
  EXPECT_EQ(rows.heightQuestions, 6) << "another height changes no row";
}

TEST_F(UITableViewTest, RowsOfNoHeightHaveNoCells) {
  TableRows rows(4);
  rows.height = [](UITableView&, IndexPath path) { return path.row % 2 ? 0.0 : 44.0; };

  show(rows);

  EXPECT_THAT(table->indexPathsForVisibleRows(),
              testing::ElementsAre(IndexPath{0, 0}, IndexPath{0, 2}));
}

TEST_F(UITableViewTest, ScrollingToARowShowsIt) {
  TableRows rows(100);
  show(rows);

  table->scrollToRowAtIndexPath({0, 50});
  table->layoutIfNeeded();
  const double below = table->contentOffset().y;
  table->scrollToRowAtIndexPath({0, 500});

  EXPECT_EQ(below, 51 * 44 - 440);
  EXPECT_NE(table->cellForRowAtIndexPath({0, 50}), nullptr);
  EXPECT_EQ(table->contentOffset().y, below);
}

TEST_F(UITableViewTest, ATapSelectsOneRowAndTellsTheDelegateOnce) {
  TableRows rows(5);
  show(rows);

  table->userDidSelectRowAtIndexPath({0, 1});
  table->userDidSelectRowAtIndexPath({0, 3});

  EXPECT_THAT(rows.selections, testing::ElementsAre(IndexPath{0, 1}, IndexPath{0, 3}));
  EXPECT_EQ(table->indexPathForSelectedRow(), (IndexPath{0, 3}));
  EXPECT_FALSE(table->cellForRowAtIndexPath({0, 1})->isSelected());
  EXPECT_TRUE(table->cellForRowAtIndexPath({0, 3})->isSelected());
}

TEST_F(UITableViewTest, TheDelegateMayRefuseOrRedirectASelection) {
  TableRows rows(5);
  rows.allowed = [](IndexPath path) {
    return path.row == 1 ? std::nullopt : std::optional(IndexPath{0, 4});
  };
  show(rows);

  table->userDidSelectRowAtIndexPath({0, 1});
  const auto refused = table->indexPathForSelectedRow();
  table->userDidSelectRowAtIndexPath({0, 2});

  EXPECT_EQ(refused, std::nullopt);
  EXPECT_THAT(rows.selections, testing::ElementsAre(IndexPath{0, 4}));
  EXPECT_EQ(table->indexPathForSelectedRow(), (IndexPath{0, 4}));
}

TEST_F(UITableViewTest, SelectingInCodeTellsNobody) {
  TableRows rows(5);
  show(rows);

  table->selectRowAtIndexPath(IndexPath{0, 2});
  table->deselectRowAtIndexPath({0, 1});
  const auto selected = table->indexPathForSelectedRow();
  table->deselectRowAtIndexPath({0, 2});

  EXPECT_EQ(selected, (IndexPath{0, 2}));
  EXPECT_EQ(table->indexPathForSelectedRow(), std::nullopt);
  EXPECT_FALSE(table->cellForRowAtIndexPath({0, 2})->isSelected());
  EXPECT_THAT(rows.selections, testing::IsEmpty());
}

TEST_F(UITableViewTest, ASelectedRowIsStillSelectedWhenItComesBack) {
  TableRows rows(100);
  show(rows);
  table->selectRowAtIndexPath(IndexPath{0, 2});

  scrollTo(3000);
  const bool anySelected =
      std::ranges::any_of(cells(), [](const UITableViewCell* cell) { return cell->isSelected(); });
  scrollTo(0);

  EXPECT_FALSE(anySelected);
  EXPECT_TRUE(table->cellForRowAtIndexPath({0, 2})->isSelected());
}

TEST_F(UITableViewTest, ASelectionGoesWithItsRow) {
  TableRows rows(5);
  show(rows);
  table->selectRowAtIndexPath(IndexPath{0, 4});

  rows.sections[0].rows = 4;
  reload();

  EXPECT_EQ(table->indexPathForSelectedRow(), std::nullopt);
}

TEST_F(UITableViewTest, ARowsOwnHandlerMayReloadTheTable) {
  TableRows rows(5);
  show(rows);
  rows.selected = [this, &rows](IndexPath) {
    rows.sections[0].rows = 2;
    table->reloadData();
    table->numberOfSections();
  };

  table->userDidSelectRowAtIndexPath({0, 4});
  table->layoutIfNeeded();

  EXPECT_EQ(cells().size(), 2u);
}

/// Every row holds a field that is being edited.
class UITableViewEditingTest : public UITableViewTest {
 protected:
  void showFields(TableRows& rows, std::function<void()> ended) {
    rows.makeCell = [this, ended](std::string name) {
      auto cell = std::make_unique<UITableViewCell>(UITableViewCellStyle::Default, std::move(name));
      UITextField* field = cell->contentView()->addSubview(std::make_unique<UITextField>());
      field->becomeFirstResponder();
      field->addTarget(
          this, "ended", [ended](UIControl&) { ended(); }, UIControlEventEditingDidEnd);
      return cell;
    };
    show(rows);
  }
};

TEST_F(UITableViewEditingTest, ARowThatLeavesEndsItsEditing) {
  TableRows rows(100);
  int ends = 0;
  showFields(rows, [&ends] { ++ends; });

  scrollTo(3000);

  EXPECT_EQ(ends, 15);
}

TEST_F(UITableViewEditingTest, TheEndOfEditingMayReloadAShorterTable) {
  TableRows rows(100);
  showFields(rows, [this, &rows] {
    rows.sections[0].rows = 4;
    table->reloadData();
    table->numberOfRowsInSection(0);
  });

  scrollTo(3000);

  EXPECT_EQ(cells().size(), 4u);
  EXPECT_EQ(table->contentOffset().y, 0);
}

TEST_F(UITableViewEditingTest, TheEndOfEditingMayAskForAReloadDuringALayout) {
  TableRows rows(100);
  showFields(rows, [this, &rows] {
    rows.sections[0].rows = 4;
    table->reloadData();
  });

  scrollTo(3000);

  EXPECT_EQ(cells().size(), 4u);
  EXPECT_THAT(table->indexPathsForVisibleRows().back(), (IndexPath{0, 3}));
}

TEST_F(UITableViewTest, ADataSourceThatThrowsLeavesATableThatWorks) {
  TableRows rows(5);
  bool fails = true;
  rows.fill = [&fails](UITableViewCell&, IndexPath path) {
    if (fails && path.row == 3) throw std::runtime_error("cell failed on purpose");
  };

  EXPECT_THROW(show(rows), std::runtime_error);
  fails = false;
  reload();

  EXPECT_EQ(cells().size(), 5u);
}

}  // namespace
}  // namespace frelta
