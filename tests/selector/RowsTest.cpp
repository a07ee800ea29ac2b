#include "tests/selector/SelectorTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HeaderRow : public SelectorTest {
 protected:
  HeaderRow() { selector->loadStyles(); }
  void showGroup(const Group& shown) {
    row.setStyleGroup(shown);
    row.updateButtonState();
    platform.mainQueue.advance(1);
  }

  std::shared_ptr<TestSelector> selector = initSelector<TestSelector>(FreltaStyleModeImages);
  FreltaStyleCellHeaderCell row{{0, 0, 390, 80}};
};

TEST_F(HeaderRow, ATapOnAStyleThatIsOffSwitchesItOn) {
  const auto aurora = style("Aurora");
  selector->setSortedStyles({aurora});
  showGroup(aurora);

  tap(*row.enableButton());

  EXPECT_EQ(aurora->enabledState(), 2);
  EXPECT_EQ(settings()->at("EnabledThemePath"), inThemes("Aurora.theme"));
  EXPECT_THAT(platform.notifications.posted, ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_EQ(row.enableButton()->enabledState(), 2);
  EXPECT_TRUE(row.enableButton()->isAnimating());
}

TEST_F(HeaderRow, ATapOnAStyleThatIsOnSwitchesItsKindOff) {
  const auto aurora = style("Aurora", FreltaStyleModeImages, FreltaEnabledStateAll);
  selector->setSortedStyles({aurora});
  showGroup(aurora);

  tap(*row.enableButton());

  EXPECT_EQ(aurora->enabledState(), 0);
  EXPECT_EQ(settings()->at("EnabledThemePath"), "");
  EXPECT_EQ(row.enableButton()->title(), "Enable");
  EXPECT_TRUE(row.enableButton()->isAnimating());
}

/// Keeps the states that the screen finds in it. It is nobody's entry, so what a tap set stands.
class AskedGroup : public FreltaSortedItem {
 public:
  void updateEnabledState() override { found.push_back(enabledState()); }
  std::vector<std::int32_t> found;
};

TEST_F(HeaderRow, ATapSetsTheGroupsStateBeforeItAsksTheScreen) {
  for (const auto& [before, after] : {std::pair(0, 2), std::pair(1, 0), std::pair(2, 0)}) {
    const auto asked = std::make_shared<AskedGroup>();
    asked->setEnabledState(before);
    showGroup(asked);

    tap(*row.enableButton());

    EXPECT_THAT(asked->found, ElementsAre(after));
    EXPECT_EQ(row.enableButton()->enabledState(), after);
  }
}

TEST_F(HeaderRow, ATapOnAPartlyEnabledGroupAsksToSwitchItOff) {
  const auto partial = std::make_shared<AskedGroup>();
  partial->setEnabledState(FreltaEnabledStatePartial);
  showGroup(partial);

  tap(*row.enableButton());

  EXPECT_EQ(partial->enabledState(), 0);
  EXPECT_EQ(settings()->at("EnabledThemePath"), "");
  EXPECT_EQ(row.enableButton()->enabledState(), 0);
  EXPECT_TRUE(row.enableButton()->isAnimating());
}

TEST_F(HeaderRow, ATapWhileTheSelectorAnimatesChangesNothing) {
  const auto aurora = style("Aurora");
  selector->setSortedStyles({aurora});
  selector->setIsAnimating(true);
  showGroup(aurora);

  tap(*row.enableButton());

  EXPECT_EQ(aurora->enabledState(), 0);
  EXPECT_EQ(settings(), std::nullopt);
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
  EXPECT_FALSE(row.enableButton()->isAnimating());
}

TEST_F(HeaderRow, TwoQuickTapsAreOnAndOffAgain) {
  const auto aurora = style("Aurora");
  selector->setSortedStyles({aurora});
  showGroup(aurora);

  tap(*row.enableButton());
  tap(*row.enableButton());

  EXPECT_EQ(aurora->enabledState(), 0);
  EXPECT_EQ(settings()->at("EnabledThemePath"), "");
  EXPECT_EQ(platform.notifications.posted.size(), 2U);
  EXPECT_EQ(row.enableButton()->title(), "Enable");
}

TEST_F(HeaderRow, WithoutAGroupATapShowsOffAndAsksNothing) {
  row.FreltaStyleContentsCell::updateButtonState(2, false);

  row.updateButtonState();
  EXPECT_EQ(row.enableButton()->enabledState(), 2);
  tap(*row.enableButton());

  EXPECT_EQ(row.enableButton()->enabledState(), 0);
  EXPECT_EQ(settings(), std::nullopt);
}

TEST_F(HeaderRow, ATapWithoutAnySelectorStillShowsTheGroupsState) {
  setCurrentSelector(nullptr);
  const auto aurora = style("Aurora");
  showGroup(aurora);

  tap(*row.enableButton());

  EXPECT_EQ(row.enableButton()->enabledState(), 2);
}

TEST_F(HeaderRow, AnEditTapLogsTheGroupsPathAndNothingElse) {
  row.setStyleGroup(style("Aurora"));
  FreltaEditButton button({0, 0, 76, 31});

  row.editButtonTapped(button);
  row.setStyleGroup(groupOf(1));
  row.editButtonTapped(button);

  EXPECT_THAT(platform.log.lines, ElementsAre(inThemes("Aurora.theme"), "(null)"));
}

class ItemRow : public SelectorTest {
 protected:
  ItemRow() { selector->setSortedStyles({owner}); }

  Item blue = item("blue");
  Item red = item("red");
  Group owner = group({blue, red});
  std::shared_ptr<TestSelector> selector = initSelector<TestSelector>(FreltaStyleModeImages);
  FreltaStyleSubCell row{{0, 0, 320, 80}};
};

TEST_F(ItemRow, IsInsetWithinItsPlace) {
  EXPECT_EQ(FreltaStyleSubCell::cellHeight(), 80);
  const FreltaStyleCellHeaderCell& view = *row.contentView();
  EXPECT_EQ(view.frame(), CGRect(7, 2, 306, 76));
  EXPECT_EQ(view.contentView()->frame(), CGRect(0, 0, 306, 76));
  const double side = 76 * static_cast<double>(0.9F);
  EXPECT_EQ(view.iconImageView()->frame(), CGRect(10, 38 - side / 2, side, side));
  EXPECT_EQ(view.enableButton()->frame(), CGRect(306 - 86, 38 - 15.5, 76, 31));
  EXPECT_EQ(view.StyleGroup(), nullptr);
  EXPECT_EQ(row.autoresizingMask(), UIViewAutoresizingFlexibleWidth);
}

TEST_F(ItemRow, FollowsTheWidthOfItsPlace) {
  row.setFrame({0, 0, 420, 80});

  EXPECT_EQ(row.contentView()->contentView()->frame(), CGRect(0, 0, 406, 76));
  EXPECT_EQ(row.contentView()->enableButton()->frame(), CGRect(406 - 86, 38 - 15.5, 76, 31));
}

TEST_F(ItemRow, ShowsItsStylesStateAtOnce) {
  red->setIsEnabled(true);

  row.setStyleItem(red);

  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 2);
  EXPECT_FALSE(row.contentView()->enableButton()->isAnimating());
  row.setStyleItem(blue);
  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 0);
}

TEST_F(ItemRow, NoStyleLeavesTheButtonAsItIs) {
  red->setIsEnabled(true);
  row.setStyleItem(red);

  row.setStyleItem(nullptr);

  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 2);
}

TEST_F(ItemRow, ATapSwitchesItsStyleInTheModelOnly) {
  row.setStyleItem(blue);

  tap(*row.contentView()->enableButton());

  EXPECT_TRUE(blue->isEnabled());
  EXPECT_FALSE(red->isEnabled());
  EXPECT_EQ(owner->enabledState(), FreltaEnabledStatePartial);
  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 2);
  EXPECT_TRUE(row.contentView()->enableButton()->isAnimating());
  EXPECT_EQ(settings(), std::nullopt);
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

TEST_F(ItemRow, ATapIsTheRowsOwnNotItsHeaders) {
  const auto aurora = style("Aurora");
  selector->setSortedStyles({aurora});
  row.contentView()->setStyleGroup(aurora);

  tap(*row.contentView()->enableButton());

  EXPECT_EQ(aurora->enabledState(), FreltaEnabledStateNone);
  EXPECT_EQ(settings(), std::nullopt);
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

TEST_F(ItemRow, LaysItsButtonOutAnewWithEachStyleAndTap) {
  FreltaToggleButton& button = *row.contentView()->enableButton();
  const CGRect place = button.frame();

  button.setFrame({});
  row.setStyleItem(blue);
  EXPECT_EQ(button.frame(), place);
  button.setFrame({});
  tap(button);
  EXPECT_EQ(button.frame(), place);
  button.setFrame({});
  row.setStyleItem(nullptr);
  EXPECT_EQ(button.frame(), place);
}

TEST_F(ItemRow, AButtonShowsWhatBecameOfTheStyle) {
  setCurrentSelector(nullptr);
  row.setStyleItem(blue);

  tap(*row.contentView()->enableButton());

  EXPECT_FALSE(blue->isEnabled());
  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 0);
}

TEST_F(ItemRow, TwoQuickTapsAreOnAndOffAgain) {
  row.setStyleItem(blue);

  tap(*row.contentView()->enableButton());
  tap(*row.contentView()->enableButton());

  EXPECT_FALSE(blue->isEnabled());
  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 0);
}

TEST_F(ItemRow, ATapWhileTheSelectorAnimatesChangesNothing) {
  selector->setIsAnimating(true);
  row.setStyleItem(blue);

  tap(*row.contentView()->enableButton());

  EXPECT_FALSE(blue->isEnabled());
  EXPECT_FALSE(row.contentView()->enableButton()->isAnimating());
  EXPECT_EQ(platform.mainQueue.pending(), 0U);
}

TEST_F(ItemRow, WithoutAStyleATapShowsOffAndAsksNothing) {
  row.contentView()->FreltaStyleContentsCell::updateButtonState(2, false);

  row.updateButtonState();
  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 2);
  tap(*row.contentView()->enableButton());

  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 0);
  EXPECT_EQ(owner->enabledState(), FreltaEnabledStateNone);
}

TEST_F(ItemRow, UpdatesItsButtonAnimated) {
  row.setStyleItem(blue);
  blue->setIsEnabled(true);

  row.updateButtonState();

  EXPECT_EQ(row.contentView()->enableButton()->enabledState(), 2);
  EXPECT_TRUE(row.contentView()->enableButton()->isAnimating());
}

TEST_F(ItemRow, IsOneGroupWithItsTitleForThoseWhoListen) {
  row.contentView()->setTitleText("id.blue");

  EXPECT_EQ(row.accessibility(),
            (UIAccessibility{.role = UIAccessibility::Role::Group, .label = "id.blue"}));
}

TEST_F(ItemRow, AnEditTapLogsThePlaceholderOfAMissingObject) {
  row.setStyleItem(blue);
  FreltaEditButton button({0, 0, 76, 31});

  row.editButtonTapped(button);

  EXPECT_THAT(platform.log.lines, ElementsAre("(null)"));
}

class ItemInformation : public SelectorTest {
 protected:
  ItemInformation() {
    neon->setFulltitle("Neon Pack");
    neon->setIdentifier("neon.blue");
  }

  Item neon = std::make_shared<FreltaStyleItem>();
  FreltaStyleSubCell row{{0, 0, 320, 80}};
};

TEST_F(ItemInformation, ComesOnTheQueuesNextTurn) {
  show(Selector::init());
  row.setStyleItem(neon);

  row.handleLongPress(*row.longPress());

  EXPECT_EQ(alert(), nullptr);
  platform.mainQueue.runPending();
  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Style_INFO");
  EXPECT_EQ(alert()->message(), "Style_PACK: Neon Pack\nStyle: neon.blue");
  ASSERT_EQ(alert()->actions().size(), 1U);
  EXPECT_EQ(alert()->actions()[0]->title(), "OK");
  EXPECT_EQ(alert()->actions()[0]->style(), UIAlertActionStyle::Default);
}

TEST_F(ItemInformation, IsAskedForByEachMessageOfThePress) {
  show(Selector::init());
  row.setStyleItem(neon);

  row.longPress()->touchBegan({10, 10});
  platform.mainQueue.advance(0.49);
  EXPECT_EQ(alert(), nullptr);
  platform.mainQueue.advance(0.01);
  ASSERT_NE(alert(), nullptr);
  const UIAlertController* first = alert();
  row.longPress()->touchMoved({12, 10});
  row.longPress()->touchEnded();

  EXPECT_EQ(platform.mainQueue.pending(), 2U);
  platform.mainQueue.runPending();
  EXPECT_EQ(alert(), first);
  EXPECT_EQ(platform.log.lines.size(), 2U);
}

TEST_F(ItemInformation, OfNothingNamesNothing) {
  show(Selector::init());

  row.handleLongPress(*row.longPress());
  platform.mainQueue.runPending();

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->message(), "Style_PACK: (null)\nStyle: (null)");
}

TEST_F(ItemInformation, OutlivesItsRow) {
  show(Selector::init());
  auto brief = std::make_unique<FreltaStyleSubCell>(CGRect(0, 0, 320, 80));
  brief->setStyleItem(neon);
  brief->handleLongPress(*brief->longPress());

  brief.reset();
  platform.mainQueue.runPending();

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->message(), "Style_PACK: Neon Pack\nStyle: neon.blue");
}

TEST_F(ItemInformation, OfAScreenThatWasLeftIsNotShown) {
  show(Selector::init());
  row.setStyleItem(neon);
  row.handleLongPress(*row.longPress());

  navigation->popViewControllerAnimated(true);
  platform.mainQueue.runPending();

  EXPECT_EQ(alert(), nullptr);
  EXPECT_THAT(platform.mainQueue.exceptions, IsEmpty());
  EXPECT_EQ(platform.log.lines.size(), 1U);
}

}  // namespace
}  // namespace frelta
