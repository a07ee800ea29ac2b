#include "preferences/PSTableCell.h"

#include <limits>

#include "preferences/PSEditableTableCell.h"
#include "preferences/PSSegmentTableCell.h"
#include "preferences/PSSliderTableCell.h"
#include "preferences/PSSwitchTableCell.h"
#include "preferences/PSTableCellFactory.h"
#include "tests/preferences/ListPageTest.h"
#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using PSTableCellTest = ListPageTest;

TEST_F(PSTableCellTest, ASwitchStoresTheIntegersOneAndZero) {
  const auto page = showTestPage({row("PSSwitchCell", "A")});
  UISwitch* control = cell<PSSwitchTableCell>(*page, "A")->control();

  control->toggle();
  control->toggle();

  EXPECT_THAT(page->writes,
              ElementsAre(Pair("A", PropertyListValue(1)), Pair("A", PropertyListValue(0))));
}

TEST_F(PSTableCellTest, ASwitchReadsAWronglyTypedValueAsOff) {
  describe({row("PSSwitchCell", "A"), row("PSSwitchCell", "B"), row("PSSwitchCell", "C")});
  auto page = std::make_shared<TestPage>();
  page->values = {{"A", Array{1}}, {"B", "yes"}, {"C", 2.5}};

  show(page);

  EXPECT_FALSE(cell<PSSwitchTableCell>(*page, "A")->control()->isOn());
  EXPECT_TRUE(cell<PSSwitchTableCell>(*page, "B")->control()->isOn());
  EXPECT_TRUE(cell<PSSwitchTableCell>(*page, "C")->control()->isOn());
}

TEST_F(PSTableCellTest, ASwitchRowIsOneSwitchToAssistiveTechnologyAndPressable) {
  const auto page = showTestPage({row("PSSwitchCell", "A")});
  PSTableCell* shown = cell(*page, "A");
  const UIAccessibility before = shown->accessibility();

  const bool taken = shown->accessibilityActivate();

  EXPECT_TRUE(before.isElement);
  EXPECT_EQ(before.role, UIAccessibility::Role::Switch);
  EXPECT_EQ(before.label, "A");
  EXPECT_FALSE(before.on);
  EXPECT_TRUE(taken);
  EXPECT_TRUE(shown->accessibility().on);
  EXPECT_EQ(page->writes.size(), 1u);
}

TEST_F(PSTableCellTest, ASwitchTellsWhoWatchesItsRowWheneverItTurns) {
  const auto page = showTestPage({row("PSSwitchCell", "A")});
  auto& shown = *cell<PSSwitchTableCell>(*page, "A");
  const CountingObserver observer(shown);

  shown.control()->toggle();
  const int afterATap = observer.changes;
  page->values["A"] = 0;
  shown.refreshCellContents();

  EXPECT_EQ(afterATap, 1);
  EXPECT_EQ(observer.changes, 2);
}

TEST_F(PSTableCellTest, ASegmentStoresItsValidValue) {
  const auto page = showTestPage({row(
      "PSSegmentCell", "A", {{"validValues", Array{5, "six"}}, {"validTitles", Array{"5", "6"}}})});
  UISegmentedControl* control = cell<PSSegmentTableCell>(*page, "A")->control();

  control->selectSegment(1);
  control->selectSegment(0);

  EXPECT_THAT(page->writes,
              ElementsAre(Pair("A", PropertyListValue("six")), Pair("A", PropertyListValue(5))));
}

TEST_F(PSTableCellTest, ASegmentWithoutAValidValueSelectsNone) {
  describe({row("PSSegmentCell", "A",
                {{"validValues", Array{0, 1}}, {"validTitles", Array{"0", "1"}}, {"default", 1}}),
            row("PSSegmentCell", "B",
                {{"validValues", Array{0, 1}}, {"validTitles", Array{"0", "1"}}, {"default", 7}})});
  auto page = std::make_shared<TestPage>();

  show(page);

  EXPECT_EQ(cell<PSSegmentTableCell>(*page, "A")->control()->selectedSegmentIndex(), 1);
  EXPECT_EQ(cell<PSSegmentTableCell>(*page, "B")->control()->selectedSegmentIndex(),
            UISegmentedControl::kNoSegment);
}

TEST_F(PSTableCellTest, ASegmentIsNamedByItsLabelElseByItsGroup) {
  Dictionary unnamed = row("PSSegmentCell", "B");
  unnamed.erase("label");
  const auto page = showTestPage({group("Group"), row("PSSegmentCell", "A"), unnamed});

  const auto named = cell<PSSegmentTableCell>(*page, "A")->control()->accessibility();
  const auto byGroup = cell<PSSegmentTableCell>(*page, "B")->control()->accessibility();

  EXPECT_EQ(named.label, "A");
  EXPECT_EQ(byGroup.label, "Group");
  EXPECT_FALSE(cell(*page, "A")->accessibility().isElement);
  EXPECT_EQ(cell(*page, "A")->textLabel()->text(), "");
  EXPECT_EQ(cell(*page, "A")->selectionStyle(), UITableViewCellSelectionStyle::None);
}

TEST_F(PSTableCellTest, ASegmentWithOtherTitlesHasOneControlThatStoresItsOwnValues) {
  const auto titled = [](const char* first, const char* second) {
    return row("PSSegmentCell", "A",
               {{"validValues", Array{first, second}}, {"validTitles", Array{first, second}}});
  };
  const auto page = showTestPage({titled("a", "b")});
  PSTableCell& shown = *cell(*page, "A");
  shown.specifier()->setProperty(Array{"c", "d"}, "validValues");
  shown.specifier()->setProperty(Array{"c", "d"}, "validTitles");

  shown.refreshCellContents();
  dynamic_cast<PSSegmentTableCell&>(shown).control()->selectSegment(1);

  EXPECT_EQ(std::ranges::count_if(
                shown.subviews(),
                [](const auto& view) { return dynamic_cast<UISegmentedControl*>(view.get()); }),
            1);
  EXPECT_THAT(page->writes, ElementsAre(Pair("A", PropertyListValue("d"))));
}

TEST_F(PSTableCellTest, ASegmentSpansTheRowButForItsMargins) {
  const auto page = showTestPage(
      {row("PSSegmentCell", "A", {{"validValues", Array{0}}, {"validTitles", Array{"0"}}})});

  const CGRect frame = cell<PSSegmentTableCell>(*page, "A")->control()->frame();

  EXPECT_EQ(frame, CGRect(16, 6, 256, 32));
}

TEST_F(PSTableCellTest, ASegmentGivesUpItsMarginsWhereItsTitlesDoNotFitOtherwise) {
  const auto page = showTestPage(
      {row("PSSegmentCell", "A", {{"validValues", Array{0}}, {"validTitles", Array{"x"}}})});
  UISegmentedControl& control = *cell<PSSegmentTableCell>(*page, "A")->control();
  const double widest = control.sizeThatFits({}).width;

  navigation->view().setFrame({0, 0, widest + 64, 4000});
  layout();
  const CGRect fitting = control.frame();
  navigation->view().setFrame({0, 0, widest + 63, 4000});
  layout();

  EXPECT_EQ(fitting, CGRect(16, 6, widest, 32));
  EXPECT_EQ(control.frame(), CGRect(6, 6, widest + 19, 32));
}

TEST_F(PSTableCellTest, ASliderStoresANumberWhenTheDragEnds) {
  const auto page = showTestPage({row("PSSliderCell", "A", {{"min", 10}, {"max", 20}})});
  UISlider* control = cell<PSSliderTableCell>(*page, "A")->control();

  control->dragToValue(12.5);
  const std::size_t whileDragging = page->writes.size();
  control->commitValue();

  EXPECT_EQ(whileDragging, 0u);
  EXPECT_THAT(page->writes, ElementsAre(Pair("A", PropertyListValue(12.5))));
}

TEST_F(PSTableCellTest, ASliderKeepsAnyValueWithinItsRange) {
  describe({row("PSSliderCell", "A", {{"min", 10}, {"max", 20}}),
            row("PSSliderCell", "B", {{"min", 10}, {"max", 20}}),
            row("PSSliderCell", "C", {{"min", "x"}, {"max", std::nan("")}})});
  auto page = std::make_shared<TestPage>();
  page->values = {{"A", 99}, {"B", std::nan("")}, {"C", Array{}}};

  show(page);

  EXPECT_EQ(cell<PSSliderTableCell>(*page, "A")->control()->value(), 20);
  EXPECT_EQ(cell<PSSliderTableCell>(*page, "B")->control()->value(), 10);
  const UISlider& unbounded = *cell<PSSliderTableCell>(*page, "C")->control();
  EXPECT_EQ(unbounded.value(), 0);
  EXPECT_EQ(unbounded.minimumValue(), 0);
  EXPECT_EQ(unbounded.maximumValue(), 1);
}

TEST_F(PSTableCellTest, ASliderIsOneElementBesideItsLabel) {
  const auto page = showTestPage({row("PSSliderCell", "A")});

  EXPECT_EQ(cell<PSSliderTableCell>(*page, "A")->control()->accessibility(),
            (UIAccessibility{.isElement = true, .label = "A"}));
  EXPECT_EQ(cell(*page, "A")->textLabel()->text(), "A");
}

TEST_F(PSTableCellTest, TextIsStoredWhenEditingEndsIfItIsAnother) {
  const auto page = showTestPage({row("PSEditTextCell", "A", {{"default", "old"}})});
  UITextField* field = cell<PSEditableTableCell>(*page, "A")->textField();

  field->becomeFirstResponder();
  field->resignFirstResponder();
  const std::size_t unchanged = page->writes.size();
  field->becomeFirstResponder();
  field->userDidEdit("new");
  const std::size_t whileTyping = page->writes.size();
  field->resignFirstResponder();

  EXPECT_EQ(unchanged, 0u);
  EXPECT_EQ(whileTyping, 0u);
  EXPECT_THAT(page->writes, ElementsAre(Pair("A", PropertyListValue("new"))));
}

TEST_F(PSTableCellTest, AFieldHasItsPlaceholderItsNameAndAButtonThatClearsIt) {
  const auto page = showTestPage({row("PSEditTextCell", "A", {{"placeholder", "none yet"}}),
                                  row("PSEditTextCell", "B", {{"placeholder", 7}})});
  const UITextField& field = *cell<PSEditableTableCell>(*page, "A")->textField();

  EXPECT_EQ(field.placeholder(), "none yet");
  EXPECT_EQ(field.clearButtonMode(), UITextFieldViewMode::WhileEditing);
  EXPECT_EQ(field.accessibility(), (UIAccessibility{.isElement = true, .label = "A"}));
  EXPECT_EQ(cell(*page, "A")->textLabel()->text(), "A");
  EXPECT_EQ(cell<PSEditableTableCell>(*page, "B")->textField()->placeholder(), "");
}

TEST_F(PSTableCellTest, WhatIsBeingTypedIsNotTakenAwayByAValueThatIsReadMeanwhile) {
  const auto page = showTestPage({row("PSEditTextCell", "A", {{"default", "old"}})});
  auto& shown = *cell<PSEditableTableCell>(*page, "A");
  shown.textField()->becomeFirstResponder();
  shown.textField()->userDidEdit("new");

  shown.refreshCellContents();
  const std::string whileTyping = shown.textField()->text();
  shown.textField()->resignFirstResponder();

  EXPECT_EQ(whileTyping, "new");
  EXPECT_THAT(page->writes, ElementsAre(Pair("A", PropertyListValue("new"))));
}

TEST_F(PSTableCellTest, ATitleValueRowShowsTheTitleOfItsValue) {
  const auto page = showTestPage(
      {row("PSTitleValueCell", "A", {{"default", "plain"}}),
       row("PSTitleValueCell", "B",
           {{"default", 1}, {"validValues", Array{0, 1}}, {"validTitles", Array{"Off", "On"}}})});

  EXPECT_EQ(cell(*page, "A")->detailTextLabel()->text(), "plain");
  EXPECT_EQ(cell(*page, "B")->detailTextLabel()->text(), "On");
  EXPECT_EQ(cell(*page, "A")->accessibility().value, "plain");
  EXPECT_EQ(cell(*page, "A")->selectionStyle(), UITableViewCellSelectionStyle::None);
}

TEST_F(PSTableCellTest, OnlyAButtonThatDoesSomethingLooksLikeOne) {
  bundle.registry.registerAction("press", [](UIViewController&, PSSpecifier&) {});
  const auto page =
      showTestPage({row("PSButtonCell", "A", {{"action", "press"}}), row("PSButtonCell", "B")});

  EXPECT_EQ(cell(*page, "A")->textLabel()->textColor(), UIColor::systemBlueColor());
  EXPECT_EQ(cell(*page, "A")->accessibility().role, UIAccessibility::Role::Button);
  EXPECT_EQ(cell(*page, "B")->textLabel()->textColor(), UIColor::labelColor());
  EXPECT_EQ(cell(*page, "B")->accessibility().role, UIAccessibility::Role::StaticText);
}

TEST_F(PSTableCellTest, OnlyALinkThatLeadsSomewhereHasAChevron) {
  bundle.registry.registerController("Page", [] { return std::make_shared<UIViewController>(); });
  bundle.registry.registerAction("open", [](UIViewController&, PSSpecifier&) {});
  const auto page = showTestPage(
      {row("PSLinkCell", "detail", {{"detail", "Page"}}),
       row("PSLinkCell", "action", {{"action", "open"}}), row("PSLinkListCell", "list"),
       row("PSLinkCell", "unknown", {{"detail", "NoPage"}}), row("PSLinkCell", "nothing")});
  const auto chevron = [&](std::string_view identifier) {
    return cell(*page, identifier)->accessoryType() ==
           UITableViewCellAccessoryType::DisclosureIndicator;
  };

  EXPECT_TRUE(chevron("detail"));
  EXPECT_TRUE(chevron("action"));
  EXPECT_TRUE(chevron("list"));
  EXPECT_FALSE(chevron("unknown"));
  EXPECT_FALSE(chevron("nothing"));
}

TEST_F(PSTableCellTest, ALongLabelWrapsBesideItsSwitchAndTheRowGrows) {
  const std::string label = "Hintergrund der Vorschlagsleiste farbig";
  const auto page =
      showTestPage({row("PSSwitchCell", "short"), row("PSSwitchCell", "long", {{"label", label}})});

  const PSTableCell* shown = cell(*page, "long");
  const CGRect text = shown->textLabel()->frame();

  EXPECT_EQ(cell(*page, "short")->frame().size.height, 44);
  // 197 points hold 23 characters of 8.5: two lines of 20.4, and 11 points above and below.
  EXPECT_EQ(shown->frame().size.height, 63);
  EXPECT_EQ(text, CGRect(16, 11, 197, 41));
  EXPECT_LE(text.maxX(), shown->accessoryView()->frame().minX());
}

TEST_F(PSTableCellTest, AStaticTextTakesTheLinesThatItNeeds) {
  const auto page = showTestPage({row("PSStaticTextCell", "A", {{"label", std::string(90, 'x')}})});

  const double narrow = cell(*page, "A")->frame().size.height;
  navigation->view().setFrame({0, 0, 640, 4000});
  layout();

  // 15-point text, lines of 18 points: three and two of them, and 11 points above and below.
  EXPECT_EQ(narrow, 76);
  EXPECT_EQ(cell(*page, "A")->frame().size.height, 58);
}

TEST_F(PSTableCellTest, ALongLabelLeavesItsValueRoom) {
  const auto page = showTestPage({row("PSTitleValueCell", "A",
                                      {{"label", "A label of quite some length in a row"},
                                       {"default", "and a value that is long as well"}})});

  const PSTableCell* shown = cell(*page, "A");

  EXPECT_GE(shown->detailTextLabel()->frame().size.width, 90);
  EXPECT_LE(shown->textLabel()->frame().maxX(), shown->detailTextLabel()->frame().minX());
  EXPECT_EQ(shown->frame().size.height, 84);
}

TEST_F(PSTableCellTest, ALabelLeavesItsFieldMoreThanHalfOfTheRow) {
  const auto page = showTestPage({row("PSEditTextCell", "A", {{"label", std::string(40, 'x')}})});

  const auto* shown = cell<PSEditableTableCell>(*page, "A");

  EXPECT_GE(shown->textField()->frame().size.width, 128);
  EXPECT_EQ(shown->frame().size.height, 104);
}

TEST_F(PSTableCellTest, ALabelWrapsAtItsShareOfTheRoomBetweenTheMargins) {
  const std::string text(39, 'x');
  const auto page = showTestPage({row("PSEditTextCell", "A", {{"label", text}})});
  const UILabel& label = *cell(*page, "A")->textLabel();
  const auto heightIn = [&](double width) {
    return measurer.sizeOfText(text, label.font(), width * 0.45, 0).height;
  };

  EXPECT_EQ(label.frame().size.height, heightIn(288 - 2 * 16));
  EXPECT_NE(heightIn(288 - 2 * 16), heightIn(288 - 3 * 16));
}

TEST_F(PSTableCellTest, ALabelAndItsControlStandSideBySideInTheMiddleOfTheRow) {
  const auto page = showTestPage({row("PSEditTextCell", "A", {{"height", 60}})});

  const auto* shown = cell<PSEditableTableCell>(*page, "A");

  ASSERT_TRUE(shown);
  const CGSize size = shown->frame().size;
  const CGSize label = measurer.sizeOfText("A", shown->textLabel()->font(), 0, 1);
  const double left = 16 + label.width + 12;
  const double height = shown->textField()->sizeThatFits({size.width - 16 - left, 60}).height;
  EXPECT_EQ(size, (CGSize{288, 60}));
  EXPECT_EQ(shown->textLabel()->frame(),
            CGRect(16, (60 - label.height) / 2, label.width, label.height));
  EXPECT_EQ(shown->textField()->frame(), CGRect(left, (60 - height) / 2, 288 - 16 - left, height));
}

TEST_F(PSTableCellTest, AFieldWithoutALabelHasTheWholeRowAndInNoRoomIsNoNarrowerThanNothing) {
  Dictionary unnamed = row("PSEditTextCell", "A");
  unnamed.erase("label");
  const auto page = showTestPage({unnamed});
  auto& shown = *cell<PSEditableTableCell>(*page, "A");

  const CGRect whole = shown.textField()->frame();
  shown.setFrame({0, 0, 20, 44});
  shown.layoutIfNeeded();

  EXPECT_EQ(whole.minX(), 16);
  EXPECT_EQ(whole.size.width, 288 - 2 * 16);
  EXPECT_EQ(shown.textField()->frame().size.width, 0);
}

TEST_F(PSTableCellTest, ALabelInNoRoomIsNoWiderThanNothing) {
  const auto page = showTestPage({row("PSEditTextCell", "A")});
  auto& shown = *cell<PSEditableTableCell>(*page, "A");

  shown.setFrame({0, 0, 20, 44});
  shown.layoutIfNeeded();

  EXPECT_EQ(shown.textLabel()->frame().size.width, 0);
  EXPECT_EQ(shown.textField()->frame().minX(), 16);
}

TEST_F(PSTableCellTest, ACellToldItsHeightPrefersItToWhatItsTextsNeed) {
  const std::string text(200, 'x');
  const auto page = showTestPage({row("PSEditTextCell", "A", {{"height", 20}, {"label", text}}),
                                  row("PSStaticTextCell", "B", {{"height", 20}, {"label", text}})});

  EXPECT_EQ(cell(*page, "A")->preferredHeightForWidth(288), 20);
  EXPECT_EQ(cell(*page, "B")->preferredHeightForWidth(288), 20);
}

TEST_F(PSTableCellTest, ARowIsFoundByTheIdentifierOfTheSpecifierItIsGiven) {
  const auto page = showTestPage({row("PSSwitchCell", "A")});
  PSTableCell& shown = *cell(*page, "A");
  const auto other = std::make_shared<PSSpecifier>(PSCellType::PSSwitchCell, "B");

  shown.setSpecifier(other);

  EXPECT_EQ(shown.specifier(), other);
  EXPECT_EQ(shown.accessibilityIdentifier(), "B");
}

TEST_F(PSTableCellTest, AClassThatFailsCostsNoMoreThanItsRow) {
  bundle.registry.registerCell("FailingCell",
                               [](UITableViewCellStyle, std::string,
                                  std::shared_ptr<PSSpecifier>) -> std::unique_ptr<PSTableCell> {
                                 throw std::runtime_error("no picture");
                               });

  const auto page = showTestPage(
      {row("PSSwitchCell", "A", {{"cellClass", "FailingCell"}}), row("PSSwitchCell", "B")});

  EXPECT_TRUE(cell<PSSwitchTableCell>(*page, "A"));
  EXPECT_TRUE(cell<PSSwitchTableCell>(*page, "B"));
  EXPECT_THAT(platform.log.lines,
              testing::Contains("[Frelta] Uncaught exception from FailingCell: no picture"));
}

TEST_F(PSTableCellTest, AClassThatNobodyRegisteredLeavesTheRowItsKind) {
  const auto row = std::make_shared<PSSpecifier>(PSCellType::PSSwitchCell, "A");
  row->setCellClass("NoSuchCell");

  const auto made = tableCellForSpecifier(row, PSClassRegistry());

  EXPECT_TRUE(dynamic_cast<PSSwitchTableCell*>(made.get()));
}

TEST_F(PSTableCellTest, AStaticTextIsSmallAndGrey) {
  const auto page = showTestPage({row("PSStaticTextCell", "A")});

  EXPECT_EQ(cell(*page, "A")->textLabel()->font(), UIFont::systemFontOfSize(15));
  EXPECT_EQ(cell(*page, "A")->textLabel()->textColor(), UIColor::secondaryLabelColor());
}

TEST_F(PSTableCellTest, AClassIsGivenRoomForADetailWhereItsRowsKindHasOne) {
  std::map<std::string, UITableViewCellStyle> styles;
  bundle.registry.registerCell("StyledCell", [&](UITableViewCellStyle style, std::string key,
                                                 std::shared_ptr<PSSpecifier> specifier) {
    styles[specifier->identifier()] = style;
    return std::make_unique<PSTableCell>(style, std::move(key), std::move(specifier));
  });
  const std::vector<const char*> withDetail{"PSLinkCell", "PSLinkListCell", "PSTitleValueCell"};
  const std::vector<const char*> without{"PSSwitchCell", "PSStaticTextCell", "PSButtonCell"};
  Array rows;
  for (const auto& kinds : {withDetail, without})
    for (const char* kind : kinds) rows.push_back(row(kind, kind, {{"cellClass", "StyledCell"}}));

  const auto page = showTestPage(std::move(rows));

  for (const char* kind : withDetail) EXPECT_EQ(styles.at(kind), UITableViewCellStyle::Value1);
  for (const char* kind : without) EXPECT_EQ(styles.at(kind), UITableViewCellStyle::Default);
}

TEST_F(PSTableCellTest, PointsInADescriptionAreAnyFiniteNumberAboveNothing) {
  const auto points = [](PropertyListValue value) {
    return PSSpecifier(PSCellType::Plain, "A", {{"height", std::move(value)}})
        .pointsForKey("height");
  };

  EXPECT_EQ(points(0.5), 0.5);
  EXPECT_EQ(points(0), std::nullopt);
  EXPECT_EQ(points(-1), std::nullopt);
  EXPECT_EQ(points(std::numeric_limits<double>::infinity()), std::nullopt);
}

TEST_F(PSTableCellTest, AHeightInTheDescriptionHolds) {
  const auto page = showTestPage({row("PSSwitchCell", "A", {{"height", 100}}),
                                  row("PSSwitchCell", "B", {{"height", -1}}),
                                  row("PSSwitchCell", "C", {{"height", "tall"}})});

  EXPECT_EQ(cell(*page, "A")->frame().size.height, 100);
  EXPECT_EQ(cell(*page, "B")->frame().size.height, 44);
  EXPECT_EQ(cell(*page, "C")->frame().size.height, 44);
}

}  // namespace
}  // namespace frelta
