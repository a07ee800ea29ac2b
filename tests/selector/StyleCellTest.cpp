#include "selector/GroundColors.h"
#include "tests/selector/SelectorTest.h"

namespace frelta {
namespace {

class StyleCell : public SelectorTest {
 protected:
  StyleCell() {
    cell.setFrame({0, 0, 390, 130});
    cell.layoutIfNeeded();
  }
  const FreltaStyleContentsCell& header() const { return *cell.headerView(); }
  const std::string& title() const { return header().headerLabel()->text(); }
  const std::string& subtitle() const { return header().subtitleLabel()->text(); }

  FreltaStyleCell cell{UITableViewCellStyle::Default, "FreltaStyleCell"};
};

TEST_F(StyleCell, ShowsTheTitleOfAnOnlyItem) {
  cell.setSortedStyleItem(groupOf(1));

  EXPECT_EQ(title(), "title of 0");
}

TEST_F(StyleCell, ShowsTheTitleOfAGroupOfTwo) {
  cell.setSortedStyleItem(groupOf(2));

  EXPECT_EQ(title(), "Group");
}

TEST_F(StyleCell, ShowsTheDisplayNameOfASingleStyleWhateverItHolds) {
  for (int items = 0; items < 4; ++items) {
    const auto aurora = style("Aurora");
    if (items > 0) aurora->setItems(groupOf(items)->items());

    cell.setSortedStyleItem(aurora);

    EXPECT_EQ(title(), "Aurora");
  }
}

TEST_F(StyleCell, ShowsAGroupWithoutAListAsUntitled) {
  const auto bare = std::make_shared<FreltaSortedItem>();
  bare->setTitle("Group");

  cell.setSortedStyleItem(bare);

  EXPECT_EQ(title(), "");
  EXPECT_EQ(header().enableButton()->enabledState(), FreltaEnabledStateAll);
}

TEST_F(StyleCell, DoesNotSupportAGroupWithAnEmptyList) {
  EXPECT_THROW(cell.setSortedStyleItem(groupOf(0)), std::out_of_range);
}

TEST_F(StyleCell, NamesTheKind) {
  const auto subtitleOf = [this](std::int32_t mode) {
    cell.setSortedStyleItem(style("Aurora", mode));
    return subtitle();
  };

  EXPECT_EQ(subtitleOf(0), "Images Theme");
  EXPECT_EQ(subtitleOf(1), "HTML Theme");
  EXPECT_EQ(subtitleOf(2), "Widget");
  EXPECT_EQ(subtitleOf(3), "Images Theme");
  EXPECT_EQ(subtitleOf(-1), "Images Theme");
  cell.setSortedStyleItem(groupOf(2));
  EXPECT_EQ(subtitle(), "Images Theme");
}

TEST_F(StyleCell, FillsTheHeader) {
  putPicture(inThemes("Aurora.theme/Icon.png"), *picture(60, 60, kWhite));

  cell.setSortedStyleItem(style("Aurora", FreltaStyleModeWidget, FreltaEnabledStateAll));

  EXPECT_EQ(header().frame(), CGRect(0, 0, 390, 80));
  EXPECT_EQ(header().superview(), &cell);
  ASSERT_NE(header().iconImageView()->image(), nullptr);
  EXPECT_EQ(header().iconImageView()->image()->size(), (CGSize{80, 80}));
  EXPECT_FALSE(header().iconImageView()->isHidden());
  EXPECT_EQ(header().headerLabel()->frame(), CGRect(112, 57.5 - 29, 72, 29));
  EXPECT_EQ(header().subtitleLabel()->frame(), CGRect(112, 57.5, 54, 22));
  EXPECT_EQ(header().enableButton()->frame(), CGRect(375 - 86, 42, 76, 31));
  EXPECT_EQ(header().enableButton()->enabledState(), 2);
  EXPECT_EQ(cell.headerView()->StyleGroup(), cell.sortedStyleItem());
  EXPECT_EQ(cell.selectionStyle(), UITableViewCellSelectionStyle::None);
  EXPECT_TRUE(cell.clipsToBounds());
  EXPECT_EQ(header().contentView()->cornerRadius(), 15);
  EXPECT_EQ(header().contentView()->maskLayer(), std::nullopt);
}

TEST_F(StyleCell, RecomputesTheGroupsState) {
  const Group shown = group({item("a", true), item("b")});
  shown->setEnabledState(FreltaEnabledStateNone);

  cell.setSortedStyleItem(shown);

  EXPECT_EQ(shown->enabledState(), FreltaEnabledStatePartial);
  EXPECT_EQ(header().enableButton()->enabledState(), FreltaEnabledStatePartial);
}

TEST_F(StyleCell, NeverHasADraggableHeader) {
  cell.setSortedStyleItem(group({item("a", true)}));

  EXPECT_FALSE(header().isDraggableCell());
  EXPECT_EQ(header().enableButton()->frame().minX(), 375 - 86);
}

TEST_F(StyleCell, GivesADraggableHeaderRoomForTheHandle) {
  const CGRect icon(10, 11.5, 92, 92);

  const auto still = HeaderGeometry::collapsed(375, icon, false);
  const auto draggable = HeaderGeometry::collapsed(375, icon, true);
  const auto open = HeaderGeometry::expanded(375, true);

  EXPECT_EQ(still.buttonX, 375 - 86);
  EXPECT_EQ(draggable.buttonX, 375 - 121);
  EXPECT_EQ(draggable.labelX, 112);
  EXPECT_EQ(draggable.labelWidth, still.labelWidth - 10);
  EXPECT_EQ(open.buttonX, 375 - 86);
  EXPECT_EQ(open.labelWidth, 375 - 30 - 76 - 10);
}

TEST_F(StyleCell, HoldsItsGeometryInSinglePrecision) {
  const auto geometry = HeaderGeometry::collapsed(375.1, {10, 11.5, 92.3, 92.3}, false);

  EXPECT_EQ(geometry.buttonX, static_cast<float>(375.1 - 76 - 10));
  EXPECT_EQ(geometry.labelX, static_cast<float>(10 + 92.3 + 10));
  EXPECT_EQ(geometry.labelWidth, static_cast<float>(375.1 - (10 + 92.3 + 10) - 40 - 76));
}

TEST_F(StyleCell, ReusedForNothingIsEmpty) {
  cell.setIsGrouped(true);
  cell.setSortedStyleItem(group({item("a", true), item("b", true)}, true));
  const auto* before = cell.headerView();

  cell.prepareForReuse();

  EXPECT_EQ(cell.headerView(), before);
  EXPECT_EQ(cell.sortedStyleItem(), nullptr);
  EXPECT_EQ(cell.headerView()->StyleGroup(), nullptr);
  EXPECT_EQ(title(), "");
  EXPECT_EQ(subtitle(), "Images Theme");
  EXPECT_EQ(header().iconImageView()->image(), nullptr);
  EXPECT_FALSE(header().iconImageView()->isHidden());
  EXPECT_EQ(header().enableButton()->enabledState(), 0);
  EXPECT_EQ(header().contentView()->cornerRadius(), 15);
  EXPECT_EQ(header().contentView()->maskLayer(), std::nullopt);
  EXPECT_EQ(cell.subCellsView(), nullptr);
}

TEST_F(StyleCell, KeepsARecogniserOfEachFilling) {
  cell.setSortedStyleItem(style("A"));
  cell.setSortedStyleItem(style("B"));

  cell.prepareForReuse();

  EXPECT_EQ(cell.gestureRecognizers().size(), 3U);
}

TEST_F(StyleCell, ALongPressDoesNothingLater) {
  cell.setSortedStyleItem(style("A"));
  auto& press = dynamic_cast<UILongPressGestureRecognizer&>(*cell.gestureRecognizers()[0]);

  cell.handleLongPress(press);

  EXPECT_EQ(platform.mainQueue.pending(), 1U);
  platform.mainQueue.runPending();
  EXPECT_EQ(alert(), nullptr);
  EXPECT_THAT(platform.mainQueue.exceptions, testing::IsEmpty());
}

TEST_F(StyleCell, FindsNoNameGood) {
  EXPECT_EQ(cell.validateSaveName("Aurora"), std::nullopt);
  EXPECT_EQ(cell.validateSaveName(""), std::nullopt);
  EXPECT_EQ(cell.validateSaveName(std::nullopt), std::nullopt);
}

TEST_F(StyleCell, OnWhiteLeavesTheClassColoursAlone) {
  cell.setSortedStyleItem(style("A"));
  const auto card = header().contentView()->backgroundColor();

  cell.setBackgroundColor(UIColor::whiteColor());
  cell.layoutIfNeeded();

  EXPECT_EQ(header().contentView()->backgroundColor(), card);
  EXPECT_EQ(FreltaToggleButton({}).backgroundColor(), UIColor::secondarySystemFillColor());
  EXPECT_EQ(FreltaStyleContentsCell({}).contentView()->backgroundColor(), card);
}

TEST_F(StyleCell, OnWhiteLeavesCustomClassColoursAloneToo) {
  const UIColor card = UIColor::colorWithRed(0.1, 0.2, 0.3, 1.0);
  const UIColor off = UIColor::colorWithRed(0.3, 0.2, 0.1, 1.0);
  cell.setSortedStyleItem(style("A"));
  const auto before = header().contentView()->backgroundColor();
  FreltaStyleContentsCell::setCustomBackgroundColor(card);
  FreltaToggleButton::setDisabledColor(off);

  cell.setBackgroundColor(UIColor::whiteColor());
  cell.setNeedsLayout();
  cell.layoutIfNeeded();

  EXPECT_EQ(FreltaStyleContentsCell({}).contentView()->backgroundColor(), card);
  EXPECT_EQ(FreltaToggleButton({}).backgroundColor(), off);
  EXPECT_EQ(header().contentView()->backgroundColor(), before);
}

TEST_F(StyleCell, OnAnotherGroundColoursCardsAndButtonsAfterIt) {
  const UIColor ground = UIColor::colorWithRed(0.9, 0.5, 0.1, 1.0);
  cell.setSortedStyleItem(style("A"));

  cell.setBackgroundColor(ground);
  cell.setNeedsLayout();
  cell.layoutIfNeeded();

  EXPECT_EQ(header().contentView()->backgroundColor(), ground);
  EXPECT_EQ(FreltaStyleContentsCell({}).contentView()->backgroundColor(), ground);
  const auto disabled = FreltaToggleButton({}).backgroundColor()->getRed().value();
  EXPECT_EQ(disabled.red, 1.0);
  EXPECT_DOUBLE_EQ(disabled.green, 0.7);
  EXPECT_DOUBLE_EQ(disabled.blue, 0.3);
  EXPECT_EQ(disabled.alpha, 1.0);
}

TEST_F(StyleCell, OnAnotherGroundColoursItsOwnButtonsLikeThoseAfterIt) {
  cell.setIsGrouped(true);
  cell.setSortedStyleItem(group({item("a"), item("b", true)}, true));

  cell.setBackgroundColor(UIColor::colorWithRed(0.9, 0.5, 0.1, 1.0));
  cell.setNeedsLayout();
  cell.layoutIfNeeded();

  const auto off = FreltaToggleButton({}).backgroundColor();
  EXPECT_EQ(subCell(cell, 0)->contentView()->enableButton()->backgroundColor(), off);
  EXPECT_NE(subCell(cell, 1)->contentView()->enableButton()->backgroundColor(), off);
  EXPECT_NE(header().enableButton()->backgroundColor(), off);
  cell.setSortedStyleItem(group({item("a"), item("b")}));
  EXPECT_EQ(header().enableButton()->backgroundColor(), off);
}

TEST_F(StyleCell, OnAGroundThatIsSeenThroughItemRowsShowOneColourWhereTheyOverlap) {
  UIView table({0, 0, 390, 400});
  table.setBackgroundColor(UIColor::colorWithRed(0, 0, 0, 1));
  const UIColor ground = UIColor::colorWithRed(1, 1, 1, 0.5);
  auto owned = std::make_unique<FreltaStyleCell>(UITableViewCellStyle::Default, "open");
  owned->setFrame({0, 0, 390, 270});
  owned->setBackgroundColor(ground);
  owned->setIsGrouped(true);
  owned->setSortedStyleItem(groupOf(2, true));
  const FreltaStyleCell& open = *table.addSubview(std::move(owned));

  table.layoutIfNeeded();

  EXPECT_EQ(open.headerView()->contentView()->backgroundColor(), ground);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(subCell(open, i)->contentView()->contentView()->backgroundColor(),
              UIColor::colorWithRed(0.75, 0.75, 0.75, 1));
  }
}

TEST_F(StyleCell, ColoursOverOneAnotherAreWhatIsSeenInEachAppearance) {
  const UIColor front = UIColor::colorWithLightAndDark({1, 0, 0, 1}, {1, 0, 0, 0.5});
  const UIColor back = UIColor::colorWithLightAndDark({0, 0, 1, 1}, {0, 0, 1, 0.5});
  const UIColor none = UIColor::colorWithRed(1, 0, 0, 0);

  const UIColor shown = colorOver(front, back);

  EXPECT_EQ(shown.componentsForStyle(UserInterfaceStyle::Light), (UIColor::Components{1, 0, 0, 1}));
  EXPECT_EQ(shown.componentsForStyle(UserInterfaceStyle::Dark),
            (UIColor::Components{0.5 / 0.75, 0, 0.25 / 0.75, 0.75}));
  EXPECT_EQ(colorOver(none, none), none);
}

TEST_F(StyleCell, OnWhiteThatIsSeenThroughColoursThemToo) {
  const UIColor ground = UIColor::colorWithRed(1.0, 1.0, 1.0, 0.5);
  cell.setSortedStyleItem(style("A"));

  cell.setBackgroundColor(ground);
  cell.setNeedsLayout();
  cell.layoutIfNeeded();

  EXPECT_EQ(header().contentView()->backgroundColor(), ground);
  EXPECT_EQ(FreltaToggleButton({}).backgroundColor(), ground);
}

TEST_F(StyleCell, OnAGroundThatIsWhiteInLightSuitsBothAppearances) {
  cell.setIsGrouped(true);
  cell.setSortedStyleItem(groupOf(2, true));
  const auto light = header().contentView()->backgroundColor()->getRed();
  cell.setBackgroundColor(UIColor::systemBackgroundColor());

  platform.system.openWindows = {{true, UserInterfaceStyle::Dark}};
  cell.setNeedsLayout();
  cell.layoutIfNeeded();

  const UIView& row = *subCell(cell, 0)->contentView()->contentView();
  const FreltaToggleButton pill({});
  EXPECT_EQ(header().contentView()->backgroundColor()->getRed(), (UIColor::Components{0, 0, 0, 1}));
  EXPECT_EQ(row.backgroundColor(), header().contentView()->backgroundColor());
  EXPECT_EQ(pill.backgroundColor()->getRed(), (UIColor::Components{0.2, 0.2, 0.2, 1}));
  platform.system.openWindows = {{true, UserInterfaceStyle::Light}};
  EXPECT_EQ(header().contentView()->backgroundColor()->getRed(), light);
  EXPECT_EQ(pill.backgroundColor()->getRed(), UIColor::secondarySystemFillColor().getRed());
}

TEST_F(StyleCell, WithoutAGroundLeavesTheClassColoursAlone) {
  cell.setSortedStyleItem(style("A"));

  cell.setBackgroundColor(std::nullopt);
  cell.setNeedsLayout();
  cell.layoutIfNeeded();

  EXPECT_EQ(FreltaToggleButton({}).backgroundColor(), UIColor::secondarySystemFillColor());
}

TEST_F(StyleCell, FitsItsLabelsToANewWidth) {
  cell.setSortedStyleItem(style(std::string(30, 'x')));
  EXPECT_EQ(header().headerLabel()->frame().size.width, 375 - 228);

  cell.setFrame({0, 0, 640, 130});
  cell.layoutIfNeeded();
  EXPECT_EQ(header().headerLabel()->frame().size.width, 360);

  cell.setFrame({0, 0, 320, 130});
  cell.layoutIfNeeded();
  EXPECT_EQ(header().headerLabel()->frame(), CGRect(112, 57.5 - 29, 305 - 228, 29));
  EXPECT_EQ(header().enableButton()->frame(), CGRect(305 - 86, 42, 76, 31));
}

TEST_F(StyleCell, TakesTitlesOfEverySort) {
  for (const std::string& name : {std::string(), std::string(100'000, 'x'), std::string("العربية"),
                                  std::string("🌈👩‍👩‍👧")}) {
    cell.setSortedStyleItem(style(name));

    EXPECT_EQ(title(), name);
    EXPECT_LE(header().headerLabel()->frame().size.width, 147);
    EXPECT_EQ(header().enableButton()->accessibility().label,
              name.empty() ? "Enable" : "Enable " + name);
  }
}

TEST_F(StyleCell, IsOneGroupWithTitleAndKindForThoseWhoListen) {
  cell.setSortedStyleItem(style("Aurora", FreltaStyleModeHTML));

  EXPECT_FALSE(cell.accessibility().isElement);
  EXPECT_EQ(cell.accessibility().role, UIAccessibility::Role::Group);
  EXPECT_EQ(cell.accessibility().label, "Aurora");
  EXPECT_EQ(cell.accessibility().value, "HTML Theme");
}

TEST_F(StyleCell, BeforeItIsFilledHasNothingToShowOrTell) {
  FreltaStyleCell bare{UITableViewCellStyle::Default, "bare"};

  bare.setSubCellsHidden(false);
  bare.updateHeaderCell();
  bare.updateSubCells();
  bare.setBackgroundColor(UIColor::colorWithRed(0.9, 0.5, 0.1, 1.0));
  bare.layoutIfNeeded();

  EXPECT_EQ(bare.headerView(), nullptr);
  EXPECT_EQ(bare.subCellsView(), nullptr);
  EXPECT_NE(bare.accessibility().role, UIAccessibility::Role::Group);
}

}  // namespace
}  // namespace frelta
