#include "tests/selector/SelectorTest.h"
#include "uikit/UITableViewCellReorderControl.h"

namespace frelta {
namespace {

// The animation's length is held in single precision.
constexpr double kSeconds = 0.2F;
constexpr double kNear = 1e-4;

CAShapeLayer maskOf(const UIView& card, unsigned corners) {
  return {card.bounds(), UIBezierPath::bezierPathWithRoundedRect(card.bounds(), corners, {15, 15})};
}

class Expansion : public SelectorTest {
 protected:
  Expansion() {
    cell.setFrame({0, 0, 390, 340});
    cell.layoutIfNeeded();
    cell.setIsGrouped(true);
  }
  const FreltaStyleContentsCell& header() const { return *cell.headerView(); }
  const UIView& card() const { return *header().contentView(); }
  const UIView& cardOf(std::size_t row) const {
    return *subCell(cell, row)->contentView()->contentView();
  }
  UITableViewCellReorderControl* addHandle() {
    return cell.addSubview(
        std::make_unique<UITableViewCellReorderControl>(CGRect(352, 0, 22, 340)));
  }
  void expectHeader(double iconAlpha, double labelX, double titleWidth, double buttonX) const {
    EXPECT_NEAR(header().iconImageView()->presentation().alpha, iconAlpha, kNear);
    EXPECT_NEAR(header().headerLabel()->presentation().frame.minX(), labelX, kNear);
    EXPECT_NEAR(header().headerLabel()->presentation().frame.size.width, titleWidth, kNear);
    EXPECT_NEAR(header().subtitleLabel()->presentation().frame.minX(), labelX, kNear);
    EXPECT_NEAR(header().enableButton()->presentation().frame.minX(), buttonX, kNear);
  }

  FreltaStyleCell cell{UITableViewCellStyle::Default, "FreltaStyleCell"};
  // "Group" is 60 points wide.
  Group three = groupOf(3);
};

TEST_F(Expansion, OfThreeItemsPlacesTheirRowsEverySeventyPoints) {
  three->setIsExpanded(true);

  cell.setSortedStyleItem(three);

  ASSERT_NE(cell.subCellsView(), nullptr);
  EXPECT_EQ(cell.subCellsView()->superview(), &cell);
  EXPECT_EQ(cell.subCellsView()->frame(), CGRect(0, 115, 375, 240));
  ASSERT_EQ(cell.subCellsView()->subviews().size(), 3U);
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_EQ(subCell(cell, i)->frame(), CGRect(0, 70 * static_cast<double>(i), 390, 80));
  EXPECT_EQ(cardOf(0).maskLayer(), std::nullopt);
  EXPECT_EQ(cardOf(1).maskLayer(), std::nullopt);
  EXPECT_EQ(cardOf(2).maskLayer(),
            maskOf(cardOf(2), UIRectCornerBottomLeft | UIRectCornerBottomRight));
  EXPECT_EQ(cardOf(2).bounds(), CGRect(0, 0, 376, 76));
}

TEST_F(Expansion, FillsEachRowWithItsIdentifier) {
  three->setIsExpanded(true);
  three->items()->at(1)->setIsEnabled(true);

  cell.setSortedStyleItem(three);

  const FreltaStyleContentsCell& row = *subCell(cell, 1)->contentView();
  EXPECT_EQ(row.headerLabel()->text(), "id.1");
  EXPECT_EQ(row.headerLabel()->font(), UIFont::systemFontOfSize(18));
  EXPECT_EQ(row.headerLabel()->frame(), CGRect(112, 38 - 22, 36, 22));
  EXPECT_EQ(row.subtitleLabel()->text(), "");
  EXPECT_EQ(row.enableButton()->enabledState(), 2);
  EXPECT_EQ(row.enableButton()->frame(), CGRect(376 - 86, 38 - 15.5, 76, 31));
  EXPECT_FALSE(row.iconImageView()->isHidden());
  EXPECT_EQ(row.contentView()->cornerRadius(), 0);
  EXPECT_EQ(subCell(cell, 1)->StyleItem(), three->items()->at(1));
  EXPECT_EQ(row.enableButton()->accessibility().label, "Disable id.1");
}

TEST_F(Expansion, OfAStyleLendsItsLogoToItemsWithoutIcons) {
  const auto aurora = style("Aurora");
  putPicture(inThemes("Aurora.theme/Icon.png"), *picture(60, 60, kWhite));
  aurora->setItems(three->items());
  aurora->setIsExpanded(true);

  cell.setSortedStyleItem(aurora);
  EXPECT_NE(subCell(cell, 0)->contentView()->iconImageView()->image(), nullptr);

  cell.prepareForReuse();
  three->setIsExpanded(true);
  cell.setSortedStyleItem(three);
  EXPECT_EQ(subCell(cell, 0)->contentView()->iconImageView()->image(), nullptr);
}

TEST_F(Expansion, JoinsHeaderAndRowsIntoOneCard) {
  three->setIsExpanded(true);

  cell.setSortedStyleItem(three);

  EXPECT_EQ(card().cornerRadius(), 0);
  EXPECT_EQ(card().maskLayer(), maskOf(card(), UIRectCornerTopLeft | UIRectCornerTopRight));
  EXPECT_EQ(card().bounds(), CGRect(0, 0, 375, 115));
  EXPECT_TRUE(header().iconImageView()->isHidden());
  EXPECT_EQ(header().iconImageView()->alpha(), 0);
  EXPECT_EQ(header().headerLabel()->frame(), CGRect(10, 57.5 - 29, 60, 29));
  EXPECT_EQ(header().subtitleLabel()->frame(), CGRect(10, 57.5, 108, 22));
  EXPECT_EQ(header().enableButton()->frame(), CGRect(375 - 86, 42, 76, 31));
  EXPECT_EQ(cell.subCellsView()->alpha(), 1);
  EXPECT_FALSE(cell.subCellsView()->isHidden());
}

TEST_F(Expansion, UngroupedMovesTheHeaderOnly) {
  cell.setIsGrouped(false);
  cell.setSortedStyleItem(three);

  cell.setSubCellsHidden(false, false);

  EXPECT_EQ(cell.subCellsView(), nullptr);
  EXPECT_TRUE(header().iconImageView()->isHidden());
  EXPECT_EQ(header().headerLabel()->frame().minX(), 10);
  EXPECT_EQ(header().headerLabel()->frame().size.width, 375 - 30 - 76);
  EXPECT_EQ(header().enableButton()->frame().minX(), 375 - 86);
  EXPECT_EQ(card().cornerRadius(), 15);
  EXPECT_EQ(card().maskLayer(), std::nullopt);
}

TEST_F(Expansion, WithoutItemsMakesNoContainer) {
  const auto bare = std::make_shared<FreltaSortedItem>();
  bare->setIsExpanded(true);

  cell.setSortedStyleItem(bare);
  cell.setSubCellsHidden(true);
  cell.setSubCellsHidden(false);
  platform.mainQueue.advance(1);

  EXPECT_EQ(cell.subCellsView(), nullptr);
  EXPECT_TRUE(header().iconImageView()->isHidden());
}

TEST_F(Expansion, FadesTheRowsInWhileTheHeaderSlides) {
  cell.setSortedStyleItem(three);
  expectHeader(1, 112, 60, 375 - 86);

  cell.setSubCellsHidden(false);

  expectHeader(1, 112, 60, 375 - 86);
  EXPECT_EQ(cell.subCellsView()->presentation().alpha, 0);
  EXPECT_FALSE(cell.subCellsView()->isHidden());
  platform.mainQueue.advance(0.1);
  expectHeader(0.5, 61, (60 + 269) / 2.0, 375 - 86);
  EXPECT_NEAR(cell.subCellsView()->presentation().alpha, 0.5, kNear);
  EXPECT_FALSE(header().iconImageView()->isHidden());
  platform.mainQueue.advance(kSeconds - 0.1);
  expectHeader(0, 10, 269, 375 - 86);
  EXPECT_EQ(cell.subCellsView()->presentation().alpha, 1);
  EXPECT_TRUE(header().iconImageView()->isHidden());
  EXPECT_FALSE(cell.subCellsView()->isHidden());
  EXPECT_EQ(platform.mainQueue.pending(), 0U);
}

TEST_F(Expansion, CollapsingIsTheReverse) {
  three->setIsExpanded(true);
  cell.setSortedStyleItem(three);

  cell.setSubCellsHidden(true);

  EXPECT_EQ(card().maskLayer(), std::nullopt);
  EXPECT_EQ(card().cornerRadius(), 15);
  EXPECT_FALSE(header().iconImageView()->isHidden());
  expectHeader(0, 10, 60, 375 - 86);
  EXPECT_EQ(cell.subCellsView()->presentation().alpha, 1);
  platform.mainQueue.advance(0.1);
  expectHeader(0.5, 61, (60 + 147) / 2.0, 375 - 86);
  EXPECT_NEAR(cell.subCellsView()->presentation().alpha, 0.5, kNear);
  platform.mainQueue.advance(kSeconds - 0.1);
  expectHeader(1, 112, 147, 375 - 86);
  EXPECT_EQ(cell.subCellsView()->presentation().alpha, 0);
  EXPECT_TRUE(cell.subCellsView()->isHidden());
  EXPECT_FALSE(header().iconImageView()->isHidden());
}

TEST_F(Expansion, TurnedBackHalfWayEndsCollapsed) {
  cell.setSortedStyleItem(three);
  cell.setSubCellsHidden(false);
  platform.mainQueue.advance(0.1);

  cell.setSubCellsHidden(true);

  expectHeader(0.5, 61, (60 + 269) / 2.0, 375 - 86);
  EXPECT_NEAR(cell.subCellsView()->presentation().alpha, 0.5, kNear);
  platform.mainQueue.advance(0.1);
  // The interrupted animation leaves the icon's view as it was.
  EXPECT_FALSE(header().iconImageView()->isHidden());
  platform.mainQueue.advance(kSeconds - 0.1);
  expectHeader(1, 112, 147, 375 - 86);
  EXPECT_FALSE(header().iconImageView()->isHidden());
  EXPECT_TRUE(cell.subCellsView()->isHidden());
}

TEST_F(Expansion, ShowsItsRowsAgainFromTheBeginningOfTheNext) {
  cell.setSortedStyleItem(three);
  cell.setSubCellsHidden(false);
  platform.mainQueue.advance(1);
  cell.setSubCellsHidden(true);
  platform.mainQueue.advance(1);
  ASSERT_TRUE(cell.subCellsView()->isHidden());

  cell.setSubCellsHidden(false);

  EXPECT_FALSE(cell.subCellsView()->isHidden());
  EXPECT_EQ(cell.subCellsView()->presentation().alpha, 0);
  platform.mainQueue.advance(0.1);
  EXPECT_NEAR(cell.subCellsView()->presentation().alpha, 0.5, kNear);
  platform.mainQueue.advance(kSeconds - 0.1);
  EXPECT_EQ(cell.subCellsView()->presentation().alpha, 1);
  EXPECT_EQ(cell.subCellsView()->subviews().size(), 3U);
}

TEST_F(Expansion, OfACollapseHalfWayEndsExpanded) {
  three->setIsExpanded(true);
  cell.setSortedStyleItem(three);
  cell.setSubCellsHidden(true);
  platform.mainQueue.advance(0.1);

  cell.setSubCellsHidden(false);

  expectHeader(0.5, 61, (60 + 147) / 2.0, 375 - 86);
  EXPECT_NEAR(cell.subCellsView()->presentation().alpha, 0.5, kNear);
  EXPECT_EQ(card().cornerRadius(), 0);
  EXPECT_EQ(card().maskLayer(), maskOf(card(), UIRectCornerTopLeft | UIRectCornerTopRight));
  platform.mainQueue.advance(0.1);
  // The interrupted animation hides nothing.
  EXPECT_FALSE(header().iconImageView()->isHidden());
  EXPECT_FALSE(cell.subCellsView()->isHidden());
  platform.mainQueue.advance(kSeconds - 0.1);
  expectHeader(0, 10, 269, 375 - 86);
  EXPECT_TRUE(header().iconImageView()->isHidden());
  EXPECT_FALSE(cell.subCellsView()->isHidden());
  EXPECT_EQ(cell.subCellsView()->presentation().alpha, 1);
}

TEST_F(Expansion, OfACellThatGroupsNoMoreFadesItsRowsOut) {
  three->setIsExpanded(true);
  cell.setSortedStyleItem(three);
  cell.setIsGrouped(false);

  cell.setSubCellsHidden(false, false);

  EXPECT_EQ(cell.subCellsView()->alpha(), 0);
  EXPECT_FALSE(cell.subCellsView()->isHidden());
}

TEST_F(Expansion, WithoutAnimationIsThereAtOnce) {
  UIView* handle = addHandle();
  cell.setSortedStyleItem(three);

  cell.setSubCellsHidden(false, false);
  EXPECT_FALSE(header().iconImageView()->isAnimating());
  EXPECT_TRUE(header().iconImageView()->isHidden());
  EXPECT_EQ(cell.subCellsView()->presentation().alpha, 1);
  platform.mainQueue.runPending();
  handle->setHidden(true);

  cell.setSubCellsHidden(true, false);
  expectHeader(1, 112, 147, 375 - 86);
  EXPECT_TRUE(cell.subCellsView()->isHidden());
  platform.mainQueue.runPending();
  EXPECT_FALSE(handle->isHidden());
}

TEST_F(Expansion, HidesTheDragHandleAtOnceAndBringsItBackAQuarterSecondAfterACollapse) {
  UIView* handle = addHandle();
  cell.setSortedStyleItem(three);
  platform.mainQueue.runPending();

  cell.setSubCellsHidden(false);
  EXPECT_TRUE(handle->isHidden());
  EXPECT_EQ(handle->frame(), CGRect(352, 0, 22, 340));
  platform.mainQueue.advance(1);
  EXPECT_TRUE(handle->isHidden());

  cell.setSubCellsHidden(true);
  platform.mainQueue.advance(0.249);
  EXPECT_TRUE(handle->isHidden());
  platform.mainQueue.advance(0.001);
  EXPECT_FALSE(handle->isHidden());
}

TEST_F(Expansion, LooksForADragHandleAmongTheCellsOwnSubviewsOnly) {
  class Impostor : public UITableViewCellReorderControl {};
  UIView* impostor = cell.addSubview(std::make_unique<Impostor>());
  UIView* inside =
      cell.contentView()->addSubview(std::make_unique<UITableViewCellReorderControl>());
  cell.setSortedStyleItem(three);

  cell.setSubCellsHidden(false);

  EXPECT_FALSE(impostor->isHidden());
  EXPECT_FALSE(inside->isHidden());
}

TEST_F(Expansion, AfterReuseBuildsTheRowsOfTheNewGroup) {
  three->setIsExpanded(true);
  cell.setSortedStyleItem(three);
  // The rows are those of the first expansion until then.
  three->items()->push_back(item("late"));
  cell.setSubCellsHidden(true, false);
  cell.setSubCellsHidden(false, false);
  EXPECT_EQ(cell.subCellsView()->subviews().size(), 3U);

  cell.prepareForReuse();
  cell.setSortedStyleItem(group({item("other")}, true));

  ASSERT_EQ(cell.subCellsView()->subviews().size(), 1U);
  EXPECT_EQ(subCell(cell, 0)->contentView()->headerLabel()->text(), "id.other");
}

TEST_F(Expansion, ReusedInMidAnimationLeavesNothingToFollow) {
  cell.setSortedStyleItem(three);
  cell.setSubCellsHidden(false);
  platform.mainQueue.advance(0.1);

  cell.prepareForReuse();
  platform.mainQueue.advance(1);

  EXPECT_EQ(cell.subCellsView(), nullptr);
  EXPECT_FALSE(header().iconImageView()->isHidden());
  EXPECT_EQ(header().iconImageView()->presentation().alpha, 1);
  EXPECT_THAT(platform.mainQueue.exceptions, testing::IsEmpty());
}

TEST_F(Expansion, ACellMayGoInMidAnimation) {
  auto brief = std::make_unique<FreltaStyleCell>(UITableViewCellStyle::Default, "brief");
  brief->addSubview(std::make_unique<UITableViewCellReorderControl>());
  brief->setIsGrouped(true);
  brief->setSortedStyleItem(three);
  brief->setSubCellsHidden(false);
  brief->setSubCellsHidden(true);

  brief.reset();
  platform.mainQueue.advance(1);

  EXPECT_THAT(platform.mainQueue.exceptions, testing::IsEmpty());
  EXPECT_EQ(platform.mainQueue.pending(), 0U);
}

TEST_F(Expansion, UpdatesTheButtonsOfAllRows) {
  three->setIsExpanded(true);
  cell.setSortedStyleItem(three);
  for (const Item& item : *three->items()) item->setIsEnabled(true);
  three->updateEnabledState();

  cell.updateSubCells();
  cell.updateHeaderCell();

  for (std::size_t i = 0; i < 3; ++i) {
    const FreltaToggleButton& button = *subCell(cell, i)->contentView()->enableButton();
    EXPECT_EQ(button.enabledState(), 2);
    EXPECT_TRUE(button.isAnimating());
  }
  EXPECT_EQ(header().enableButton()->enabledState(), 2);
}

TEST_F(Expansion, FollowsANewWidthWithItsMasks) {
  three->setIsExpanded(true);
  cell.setSortedStyleItem(three);

  cell.setFrame({0, 0, 600, 340});
  cell.layoutIfNeeded();

  EXPECT_EQ(card().maskLayer(), maskOf(card(), UIRectCornerTopLeft | UIRectCornerTopRight));
  EXPECT_EQ(card().bounds().size.width, 585);
  EXPECT_EQ(subCell(cell, 0)->frame(), CGRect(0, 0, 600, 80));
  EXPECT_EQ(cardOf(2).maskLayer(),
            maskOf(cardOf(2), UIRectCornerBottomLeft | UIRectCornerBottomRight));
  EXPECT_EQ(cardOf(2).bounds().size.width, 586);
  EXPECT_EQ(header().headerLabel()->frame(), CGRect(10, 57.5 - 29, 60, 29));
}

TEST_F(Expansion, GoesOnWhenTheCellIsLaidOutMeanwhile) {
  const auto expandHalfWay = [&] {
    cell.setSubCellsHidden(false);
    platform.mainQueue.advance(0.1);
    cell.setNeedsLayout();
    cell.layoutIfNeeded();
  };
  cell.setSortedStyleItem(three);

  expandHalfWay();
  expectHeader(0.5, 61, (60 + 269) / 2.0, 375 - 86);
  cell.setSubCellsHidden(true, false);
  cell.setFrame({0, 0, 400, 340});
  cell.layoutIfNeeded();
  expandHalfWay();

  expectHeader(0.5, 61, (60 + 279) / 2.0, 385 - 86);
}

TEST_F(Expansion, OfAThousandItemsBuildsThemAll) {
  cell.setSortedStyleItem(groupOf(1'000, true));

  EXPECT_EQ(cell.subCellsView()->subviews().size(), 1'000U);
  EXPECT_EQ(subCell(cell, 999)->frame().minY(), 69'930);
}

}  // namespace
}  // namespace frelta
